// Small typed numbers by which the program and the device name things to each other.
#pragma once

#include <cstdint>

namespace tavo {

// A window, dialog, page or control of this process, or (from FindWindowW only) of another one. 0 is none.
enum class WindowHandle : std::uint32_t { None = 0 };

// A font made by the device; valid until it is deleted. 0 is none.
enum class FontHandle : std::uint32_t { None = 0 };

// An open registry key. 0 is none.
enum class KeyHandle : std::uint32_t { None = 0 };

} // namespace tavo
