// Words for a store's failures.
#include "host/locale/failure_text.h"

namespace tavo::locale {

std::string DescribeFailure(Status status) {
    switch (status) {
    case Status::DiskFull:
        return "the disk is full";
    case Status::Locked:
        return "another program kept it locked for too long";
    case Status::AccessDenied:
        return "there is no permission to write there";
    case Status::Corrupt:
        return "the file is damaged; `tavo check` says more";
    case Status::NewerVersion:
        return "it is from a newer version of Tavo Calendar";
    case Status::NotOurs:
        return "it is not a store of Tavo Calendar";
    case Status::OutOfMemory:
        return "there is not enough memory";
    default:
        return "the store refused (code " + std::to_string(static_cast<std::int32_t>(status)) + ")";
    }
}

} // namespace tavo::locale
