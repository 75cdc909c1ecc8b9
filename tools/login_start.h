// The start of the reminder service with the person's session.
#pragma once

#include "host/files/device_root.h"

#include <string>

namespace tavo::tools {

// Enters the service among what the desktop starts at login, and starts it now. "" when it is done, else a sentence.
std::string StartAtLogin(const files::DeviceRoot& root);
// Takes it out, and ends the service that runs for this root.
std::string StopAtLogin(const files::DeviceRoot& root);

} // namespace tavo::tools
