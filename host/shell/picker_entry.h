// What a person types into a date or time picker: its parts, and when a value is complete.
#pragma once

#include "platform/controls.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavo::shell {

enum class PickerFields { Date, Time, TimeWithSeconds };

// A time picker's text is the picture in which it shows its time: with "ss" there are seconds too.
PickerFields FieldsOf(ControlKind kind, std::u16string_view picture);

// A date is typed as month, day and year, a time as hour, minute, perhaps second, and half of the day. Digits gather in
// one part until it is full or no other digit could follow; then the next part begins. What is complete is the picker's
// value at once, but the program is told only of the whole: when the last part is complete, when the picker is left, or
// at a step with the arrow keys. On the way to it lie dates and times that nobody means (11 o'clock in the evening
// before the "a").
struct PickerEntry {
    int Part = 0;           // where the next key goes
    std::u16string Typed;   // digits of this part, not taken yet
    std::u16string HourRun; // the hour's digits, while the minute's follow without a separator
    int HourBefore = 0;     // the value's, before those of HourRun were taken
    int TypedDay = 0;       // as typed, though the month shown meanwhile may be too short for it; 0: none
    bool Untold = false;    // the value is another than the program knows
};

// A picker's text and the places of its parts in it: from the first to before the last character.
struct PickerFace {
    struct Span {
        int First = 0;
        int Last = 0;
    };

    std::u16string Text;
    std::vector<Span> Parts;
};

// As it is shown, with what is being typed: "11/25/2026", "5:30 PM" and "5:30:00 PM". Where three digits in a row are
// an hour of one, that is shown at once: whoever leaves the picker then leaves what it shows.
PickerFace FaceOf(PickerFields fields, const SYSTEMTIME& time, const PickerEntry& entry);
// The part at this character, or the one before it where a separator stands.
int PartAt(const PickerFace& face, int character);

// One key or character on its way into a picker. The caller tells the program, and forgets the entry, when asked to.
class PickerKeys {
  public:
    PickerKeys(PickerFields fields, SYSTEMTIME& time, PickerEntry& entry) : Fields(fields), Time(time), Entry(entry) {}

    // Arrows, Home, End, Backspace, Delete. False for keys that mean nothing to a picker.
    bool Press(int key);
    // False for characters that mean nothing here; they change nothing.
    bool Type(char16_t character);
    // The part that has the keys goes up (1) or down (-1) and begins anew beyond its end.
    void Step(int by);
    void GoTo(int part);
    // What has been typed of the part counts as all of it.
    void TakeTyped();

    // The program is to be told now.
    bool IsComplete() const { return Complete; }

  private:
    bool IsTime() const { return Fields != PickerFields::Date; }

    int LastPart() const;

    bool IsHalf() const { return IsTime() && Entry.Part == LastPart(); }

    void TypeDigit(char16_t digit);
    void ChooseHalf(bool afternoon);
    void Advance();
    void TakeDatePart(int number, std::size_t digits);
    void TakeTimePart(int number);
    void Put(const SYSTEMTIME& time);
    void PutDate(int year, int month, int day);

    PickerFields Fields;
    SYSTEMTIME& Time;
    PickerEntry& Entry;
    bool Complete = false;
};

} // namespace tavo::shell
