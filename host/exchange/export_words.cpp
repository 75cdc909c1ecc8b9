// What an export says to people.
#include "host/exchange/export_words.h"

#include "host/exchange/import_words.h"

namespace tavo::exchange {

std::string Unsaid::Describe() const {
    std::string text;
    const auto add = [&text](int count, const char* one, const char* several) {
        if (count > 0) {
            text += (text.empty() ? "" : ", ") + CountOf(count, one, several);
        }
    };
    add(Kinds, "kind (seen as a category)", "kinds (seen as categories)");
    add(Sounds, "sound", "sounds");
    add(Ink, "note of ink (seen as a picture)", "notes of ink (seen as pictures)");
    return text.empty() ? "" : "Other calendars will not understand: " + text + ".";
}

const char* DescribeWriteFailure(ErrorCode problem) {
    switch (problem) {
    case ErrorCode::DiskFull:
        return "the disk is full";
    case ErrorCode::FileNotFound:
    case ErrorCode::PathNotFound:
        return "there is no such folder";
    case ErrorCode::AccessDenied:
        return "it is no file, or may not be written";
    case ErrorCode::WriteProtected:
        return "the disk can only be read";
    case ErrorCode::InvalidName:
        return "its name is not allowed";
    default:
        return "the device does not work";
    }
}

} // namespace tavo::exchange
