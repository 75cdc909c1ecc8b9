// The backups that the device keeps of itself: one of each night, in a folder of its own.
#pragma once

#include "host/files/device_root.h"

#include <chrono>
#include <string>
#include <vector>

namespace tavo::backup {

constexpr int kNightsKept = 7; // and before them one of each month

std::string BackupFolder(const files::DeviceRoot& root);
// For the user alone. False when there is none and none can be made.
bool MakeBackupFolder(const files::DeviceRoot& root);

// ".../Backups/night 2026-11-23 030000.tavo", in universal time.
std::string NameOfBackup(const files::DeviceRoot& root, const std::string& what,
                         std::chrono::system_clock::time_point when);

// The names of the files in the folder that are backups, the oldest first.
std::vector<std::string> ListBackups(const files::DeviceRoot& root);

// Which of the nights' backups have had their time: all but the last seven and the first of each month. `names` as
// ListBackups gives them; others than the nights' stay.
std::vector<std::string> FindSpentBackups(const std::vector<std::string>& names);

// Makes this night's backup and removes those that have had their time; the moment is now. False: `problem` says why.
bool KeepBackup(const files::DeviceRoot& root, std::string& problem);

} // namespace tavo::backup
