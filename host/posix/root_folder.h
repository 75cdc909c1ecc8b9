// The device's root folder on this machine.
#pragma once

#include "host/files/device_root.h"

#include <optional>
#include <string>

namespace tavo::posix {

// The variables that decide about the place; an empty one counts as not set.
struct RootEnvironment {
    std::string TavoHome;    // TAVO_HOME: the root itself
    std::string XdgDataHome; // XDG_DATA_HOME: the root is "tavocalendar" in it; passed over unless absolute
    std::string Home;        // HOME: the root is ".local/share/tavocalendar" in it

    static RootEnvironment OfProcess();
};

struct RootResult {
    std::optional<files::DeviceRoot> Root;
    std::string Problem; // without a root: one sentence for a person, saying what is wrong and what helps
};

// Finds the root and makes what is missing of it and its folders, for the user alone (0700).
RootResult OpenDeviceRoot(const RootEnvironment& environment);

} // namespace tavo::posix
