// A calendar file of this machine that is being written.
#include "host/posix/file_target.h"

namespace tavo::posix {
namespace {

constexpr std::size_t kPieceSize = std::size_t{256} * 1024;

} // namespace

ErrorCode FileTarget::Write(std::string_view bytes) {
    Waiting += bytes;
    return Waiting.size() < kPieceSize ? ErrorCode::Success : Flush();
}

ErrorCode FileTarget::Finish() {
    const ErrorCode error = Flush();
    return error == ErrorCode::Success ? File.Finish() : error;
}

ErrorCode FileTarget::Flush() {
    const ErrorCode error = File.Write({reinterpret_cast<const std::uint8_t*>(Waiting.data()), Waiting.size()});
    Waiting.clear();
    return error;
}

std::unique_ptr<exchange::IByteTarget> OpenFileTarget(const std::string& path, ErrorCode& problem) {
    auto target = std::make_unique<FileTarget>();
    problem = target->Open(path);
    return problem == ErrorCode::Success ? std::move(target) : nullptr;
}

} // namespace tavo::posix
