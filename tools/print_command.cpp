// tavo print: hands what was asked for to the program that draws pages.
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/helper_program.h"
#include "tools/output.h"
#include "tools/store_days.h"

#include <array>

namespace tavo::tools {
namespace {

constexpr std::array<const char*, 4> kWhat{"month", "week", "day", "list"}; // as PrintWhat counts

} // namespace

int RunPrint(const PrintOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    if (!root || !OpenStoreToRead(*root)) { // says in words why not
        return kExitFailure;
    }
    return RunHelper("tavo-print",
                     {kWhat[static_cast<std::size_t>(options.What)], std::to_string(NumberOf(options.First)),
                      std::to_string(NumberOf(options.Last)), options.Paper, options.File});
}

} // namespace tavo::tools
