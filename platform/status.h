// The signed 32-bit status code that every call on the device gives back.
#pragma once

#include <cstdint>

namespace tavo {

// Negative values are failures; zero and above are successes. The values are the device's own.
enum class [[nodiscard]] Status : std::int32_t{
    Ok = 0,
    False = 1, // succeeded, but there was nothing to do (S_FALSE)
    Fail = static_cast<std::int32_t>(0x80004005),
    InvalidArgument = static_cast<std::int32_t>(0x80070057),
    NotFound = static_cast<std::int32_t>(0x80070490),
    AccessDenied = static_cast<std::int32_t>(0x80070005),
    OutOfMemory = static_cast<std::int32_t>(0x8007000E),
    TooLarge = static_cast<std::int32_t>(0x800700DF), // more bytes than the device takes
    DiskFull = static_cast<std::int32_t>(0x80070070),
    Locked = static_cast<std::int32_t>(0x80070021),       // another process holds the store
    Corrupt = static_cast<std::int32_t>(0x80070570),      // the store file is damaged
    NewerVersion = static_cast<std::int32_t>(0x80070481), // the store file is from a newer program
    NotOurs = static_cast<std::int32_t>(0x8007000B),      // the store file is some other file
    Unexpected = static_cast<std::int32_t>(0x8000FFFF),   // called in the wrong order
};

constexpr bool Succeeded(Status status) {
    return static_cast<std::int32_t>(status) >= 0;
}

constexpr bool Failed(Status status) {
    return static_cast<std::int32_t>(status) < 0;
}

// The Win32-style code that GetLastError reports; zero is success.
enum class ErrorCode : std::int32_t {
    Success = 0,
    FileNotFound = 2,
    PathNotFound = 3,
    AccessDenied = 5,
    InvalidHandle = 6,
    BadFormat = 11,
    WriteProtected = 19,
    LockViolation = 33,
    DiskFull = 112,
    InvalidName = 123,
    AlreadyExists = 183,
    FileCorrupt = 1392,
    NewerVersion = 1153,
    CannotComplete = 1003,
};

} // namespace tavo
