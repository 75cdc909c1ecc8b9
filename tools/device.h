// Opens the device's store for a command, and says in words why it cannot be opened.
#pragma once

#include "host/files/device_root.h"
#include "host/locale/failure_text.h"
#include "host/outlook/store.h"

#include <optional>

namespace tavo::tools {

enum class Opening {
    Good,
    NoStore, // read-only, and there is none yet
    Failed,  // a sentence is on standard error
};

// The root folder, which is made if it is missing; empty with a sentence on standard error.
std::optional<files::DeviceRoot> FindRoot();

Opening OpenStore(const files::DeviceRoot& root, outlook::Access access, outlook::StorePtr& store);

// The device's store, null when there is none yet; nothing with a sentence on standard error when it cannot be read.
std::optional<outlook::StorePtr> OpenStoreToRead(const files::DeviceRoot& root);

// Writes "tavo: ..." to standard error, as one line whatever the sentence holds.
void Complain(std::string_view sentence);

// The same of words that the command does not understand, and which help to read. The exit status for that.
int RefuseWords(std::string_view sentence, std::string_view command);

// What a failed call on the open store means to people, as the end of a sentence.
using locale::DescribeFailure;

} // namespace tavo::tools
