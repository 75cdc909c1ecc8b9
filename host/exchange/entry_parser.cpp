// Hands one entry of a calendar file to libical and finds the line that libical could not read.
#include "host/exchange/entry_parser.h"

#include <array>
#include <string>

namespace tavo::exchange {
namespace {

// Lines whose meaning may not be guessed: if one of them cannot be read, the file is broken.
constexpr std::array<std::string_view, 10> kStrictNames = {"DTSTART", "DTEND",   "DURATION",      "RRULE",  "RDATE",
                                                           "EXDATE",  "TRIGGER", "RECURRENCE-ID", "EXRULE", "UID"};

bool HasErrors(icalcomponent* component) {
    if (icalcomponent_get_first_property(component, ICAL_XLICERROR_PROPERTY) != nullptr) {
        return true;
    }
    for (icalcomponent* inner = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT); inner != nullptr;
         inner = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
        if (HasErrors(inner)) {
            return true;
        }
    }
    return false;
}

// Libical does not say where it stumbled, so each line is tried alone.
bool IsReadable(const char* line) {
    const std::string text = std::string("BEGIN:VEVENT\n") + line + "\nEND:VEVENT\n";
    const ComponentPtr component(icalparser_parse_string(text.c_str()));
    return component != nullptr && !HasErrors(component.get());
}

bool FindFault(const CalendarPiece& piece, FileFault& fault) {
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view name;
        std::string_view value;
        const char* line = piece.GetLine(index);
        if (!SplitLine(line, name, value)) {
            continue;
        }
        for (const std::string_view strict : kStrictNames) {
            if (EqualsIgnoringCase(name, strict) && !IsReadable(line)) {
                fault = {piece.Lines[index].Number, "the value of " + std::string(strict) + " cannot be read: \"" +
                                                        std::string(value.substr(0, 60)) + "\""};
                return true;
            }
        }
    }
    return false;
}

} // namespace

EntryParser::EntryParser() : Parser(icalparser_new()) {
    icalerror_set_errors_are_fatal(0); // a bad line is our message, not an abort
}

ComponentPtr EntryParser::Parse(CalendarPiece& piece, FileFault& fault) {
    ComponentPtr component;
    for (const CalendarPiece::LinePlace& line : piece.Lines) {
        if (line.IsRead) {
            component.reset(icalparser_add_line(Parser.get(), piece.Text.data() + line.Begin));
        }
    }
    if (component == nullptr) {
        fault = {piece.Line, "this entry cannot be read"};
        icalparser_clean(Parser.get());
        Parser.reset(icalparser_new());
        return nullptr;
    }
    if (HasErrors(component.get()) && FindFault(piece, fault)) {
        return nullptr;
    }
    return component;
}

int FindLine(const CalendarPiece& piece, std::string_view name, int nth) {
    for (std::size_t index = 0; index < piece.Lines.size(); ++index) {
        std::string_view found;
        std::string_view value;
        if (SplitLine(piece.GetLine(index), found, value) && EqualsIgnoringCase(found, name) && nth-- == 0) {
            return piece.Lines[index].Number;
        }
    }
    return piece.Line;
}

} // namespace tavo::exchange
