// The start of the reminder service with the person's session.
#pragma once

#include "host/files/device_root.h"

#include <optional>
#include <string>
#include <sys/types.h>

namespace tavo::tools {

// Enters the service among what the desktop starts at login, and starts it now. "" when it is done, else a sentence.
std::string StartAtLogin(const files::DeviceRoot& root);
// Has it start no more at login, and ends the service that runs for this root.
std::string StopAtLogin(const files::DeviceRoot& root);

// The process that shows the reminders of this device; nothing when none does.
std::optional<pid_t> FindReminderService(const files::DeviceRoot& root);

} // namespace tavo::tools
