// The size of the desktop window, kept from one run to the next in the device's root.
#pragma once

#include <QSize>

#include <string>

namespace tavo::qt {

// Empty when none is remembered.
QSize ReadRememberedSize(const std::string& root);
// A size that cannot be written is forgotten.
void RememberSize(const std::string& root, QSize size);

} // namespace tavo::qt
