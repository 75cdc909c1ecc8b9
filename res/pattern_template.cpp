// The pattern page of the recurrence wizard: the controls of all four modes, of which one mode's are shown at a time.
#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

constexpr std::u16string_view kIntervals[] = {u"1", u"2", u"3", u"4", u"5", u"10", u"15", u"20"};
constexpr std::u16string_view kDays[] = {u"1",  u"2",  u"3",  u"4",  u"5",  u"6",  u"7",  u"8",  u"9",  u"10", u"11",
                                         u"12", u"13", u"14", u"15", u"16", u"17", u"18", u"19", u"20", u"21", u"22",
                                         u"23", u"24", u"25", u"26", u"27", u"28", u"29", u"30", u"31"};
constexpr std::u16string_view kOrdinals[] = {u"First", u"Second", u"Third", u"Fourth", u"Last"};
constexpr std::u16string_view kWeekdays[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                             u"Thursday", u"Friday", u"Saturday"};
constexpr std::u16string_view kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                           u"July",    u"August",   u"September", u"October", u"November", u"December"};

constexpr DialogItem List(ControlKind kind, int id, const Rect& bounds, std::span<const std::u16string_view> entries) {
    DialogItem item{kind, id, u"", bounds, false};
    item.ListItems = entries;
    return item;
}

// A label writes at its top, the other controls in the middle of their row: it stands lower.
constexpr int kTextDrop = 2;

constexpr DialogItem Text(int id, std::u16string_view text, const Rect& row) {
    return {ControlKind::Label, id, text, {row.Left, row.Top + kTextDrop, row.Right, row.Bottom}, false};
}

constexpr DialogItem Radio(int id, std::u16string_view text, const Rect& bounds, bool startsGroup) {
    return {ControlKind::RadioButton, id, text, bounds, false, startsGroup};
}

// The page puts the seven beside each other.
constexpr DialogItem Toggle(int id, std::u16string_view name, int off, int on) {
    return {ControlKind::PictureButton, id, name, Rect::FromSize(12, 52, 15, 14), false, false, off, on};
}

constexpr int kTop = 22;    // of the first row
constexpr int kMiddle = 46; // of the second
constexpr int kBottom = 62; // of the third

constexpr DialogItem kItems[] = {
    // Only a place: the tab strip is painted, since it has four pictures.
    {ControlKind::Label, kPatternTabs, u"", Rect::FromSize(0, 0, 160, 15), false},

    Text(kPatternDailyEveryLabel, u"Every", Rect::FromSize(8, kTop, 26, 13)),
    List(ControlKind::EditableList, kPatternDayInterval, Rect::FromSize(36, kTop, 36, 13), kIntervals),
    Text(kPatternDaysLabel, u"day(s)", Rect::FromSize(76, kTop, 40, 13)),

    Text(kPatternWeeklyEveryLabel, u"Every", Rect::FromSize(8, kTop, 26, 13)),
    List(ControlKind::EditableList, kPatternWeekInterval, Rect::FromSize(36, kTop, 36, 13), kIntervals),
    Text(kPatternWeeksLabel, u"week(s)", Rect::FromSize(76, kTop, 40, 13)),
    Toggle(kPatternSunday, u"Sunday", kBitmapSundayOff, kBitmapSundayOn),
    Toggle(kPatternMonday, u"Monday", kBitmapMondayOff, kBitmapMondayOn),
    Toggle(kPatternTuesday, u"Tuesday", kBitmapTuesdayOff, kBitmapTuesdayOn),
    Toggle(kPatternWednesday, u"Wednesday", kBitmapWednesdayOff, kBitmapWednesdayOn),
    Toggle(kPatternThursday, u"Thursday", kBitmapThursdayOff, kBitmapThursdayOn),
    Toggle(kPatternFriday, u"Friday", kBitmapFridayOff, kBitmapFridayOn),
    Toggle(kPatternSaturday, u"Saturday", kBitmapSaturdayOff, kBitmapSaturdayOn),

    Radio(kPatternMonthlyDay, u"Day", Rect::FromSize(4, kTop, 29, 13), true),
    List(ControlKind::EditableList, kPatternDayOfMonth, Rect::FromSize(34, kTop, 30, 13), kDays),
    Text(kPatternDayOfEveryLabel, u"of every", Rect::FromSize(67, kTop, 28, 13)),
    List(ControlKind::EditableList, kPatternDayMonths, Rect::FromSize(96, kTop, 30, 13), kIntervals),
    Text(kPatternDayMonthsLabel, u"month(s)", Rect::FromSize(128, kTop, 31, 13)),
    Radio(kPatternMonthlyThe, u"The", Rect::FromSize(4, kMiddle, 29, 13), false),
    List(ControlKind::FixedList, kPatternTheOrdinal, Rect::FromSize(34, kMiddle, 44, 13), kOrdinals),
    List(ControlKind::FixedList, kPatternTheWeekday, Rect::FromSize(80, kMiddle, 60, 13), kWeekdays),
    Text(kPatternTheOfEveryLabel, u"of every", Rect::FromSize(67, kBottom, 28, 13)),
    List(ControlKind::EditableList, kPatternTheMonths, Rect::FromSize(96, kBottom, 30, 13), kIntervals),
    Text(kPatternTheMonthsLabel, u"month(s)", Rect::FromSize(128, kBottom, 31, 13)),

    Radio(kPatternYearlyDay, u"Every", Rect::FromSize(4, kTop, 36, 13), true),
    List(ControlKind::FixedList, kPatternYearDayMonth, Rect::FromSize(42, kTop, 62, 13), kMonths),
    List(ControlKind::FixedList, kPatternYearDay, Rect::FromSize(106, kTop, 30, 13), kDays),
    Radio(kPatternYearlyNth, u"Every", Rect::FromSize(4, kMiddle, 36, 13), false),
    List(ControlKind::FixedList, kPatternYearNthOrdinal, Rect::FromSize(42, kMiddle, 46, 13), kOrdinals),
    List(ControlKind::FixedList, kPatternYearNthWeekday, Rect::FromSize(90, kMiddle, 62, 13), kWeekdays),
    Text(kPatternYearOfLabel, u"of", Rect::FromSize(28, kBottom, 12, 13)),
    List(ControlKind::FixedList, kPatternYearNthMonth, Rect::FromSize(42, kBottom, 62, 13), kMonths),
};

} // namespace

constexpr DialogTemplate kPatternPageTemplate{kDialogPattern, u"Pattern", {162, 111}, 8, kItems};

} // namespace tavo
