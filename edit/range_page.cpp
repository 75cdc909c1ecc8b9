// Between the pattern's end and the page's controls.
#include "edit/range_page.h"

#include "edit/item_times.h"
#include "edit/leading_number.h"
#include "framework/format.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

constexpr std::int32_t kDoesNotEnd = 0;
constexpr std::int32_t kEndsOn = 1;
constexpr std::int32_t kEndsAfter = 2;
constexpr int kEndButtons[] = {kRangeNoEnd, kRangeEndsOn, kRangeEndsAfter}; // by the end mode

constexpr double kDefaultDays = 61; // from the pattern's start to the end date at first
constexpr std::u16string_view kDefaultCount = u"10";
constexpr SYSTEMTIME kEndOfDay{.Hour = 23, .Minute = 59, .Second = 59};

constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr Color kHeadingColor = Color::FromRgb(0, 0, 0);
constexpr Rect kHeadingPlace = Rect::FromSize(9, 26, 220, 24);

} // namespace

CRangePage::CRangePage(CMessagePump& pump, CProgramState& state, IRecurrencePattern& pattern)
    : CWizardPage(pump, kRangePageTemplate), State(state), Pattern(pattern) {}

void CRangePage::OnInitDialog() {
    ReadPattern();
    SetDefaults();
    ShowEnd();
}

void CRangePage::ReadPattern() {
    // What cannot be read keeps the value of a pattern without an end.
    static_cast<void>(Pattern.get_NoEndDate(NoEnd));
    static_cast<void>(Pattern.get_PatternStartDate(PatternStart));
    static_cast<void>(Pattern.get_Occurrences(Occurrences));
}

void CRangePage::SetDefaults() {
    SYSTEMTIME day;
    if (Host().Locale().VariantTimeToSystemTime(PatternStart + kDefaultDays, day)) {
        static_cast<void>(Host().Controls().SetSystemtime(Item(kRangeEndDate), JoinDateAndTime(day, kEndOfDay)));
    }
    CountText = kDefaultCount;
    PushFields();
}

void CRangePage::ShowEnd() {
    if (NoEnd) {
        EndMode = kDoesNotEnd;
    } else {
        EndMode = Occurrences > 0 ? kEndsAfter : kEndsOn;
        if (Occurrences > 0) {
            CountText = FormatText(u"%ld", Occurrences);
        }
        DATE end = kNoDate;
        static_cast<void>(Pattern.get_PatternEndDate(end));
        SetEndDate(end);
    }
    PushFields();
}

void CRangePage::SetEndDate(DATE date) {
    SYSTEMTIME time;
    if (date != kNoDate && Host().Locale().VariantTimeToSystemTime(date, time)) {
        static_cast<void>(Host().Controls().SetSystemtime(Item(kRangeEndDate), time));
    }
}

void CRangePage::PushFields() {
    for (std::int32_t mode = 0; const int button : kEndButtons) {
        Host().Controls().SetCheck(Item(button), EndMode == mode);
        ++mode;
    }
    SetItemText(kRangeCount, CountText);
}

bool CRangePage::UpdateData() {
    for (std::int32_t mode = 0; const int button : kEndButtons) { // one of them is always on
        if (Host().Controls().GetCheck(Item(button))) {
            EndMode = mode;
        }
        ++mode;
    }
    CountText = ItemText(kRangeCount);
    return true;
}

// The end is not judged here: the store refuses a bad one when the appointment is saved, as it does an item whose
// pattern takes nothing any more.
bool CRangePage::WriteToPattern(Validation) {
    static_cast<void>(UpdateData()); // refuses nothing
    const auto put = [](Status status) { static_cast<void>(status); };
    switch (EndMode) {
    case kDoesNotEnd:
        put(Pattern.put_NoEndDate(true));
        WrittenEnd = RuleEnd::Never;
        break;
    case kEndsOn: {
        DATE end = kLowestDate; // refused too, should the picker hold no date
        static_cast<void>(
            Host().Locale().SystemTimeToVariantTime(Host().Controls().GetSystemtime(Item(kRangeEndDate)), end));
        put(Pattern.put_NoEndDate(false));
        put(Pattern.put_PatternEndDate(end));
        WrittenEnd = RuleEnd::OnDate;
        break;
    }
    case kEndsAfter:
        put(Pattern.put_NoEndDate(false));
        put(Pattern.put_Occurrences(LeadingNumber(CountText)));
        WrittenEnd = RuleEnd::AfterCount;
        break;
    default:
        break;
    }
    return true;
}

void CRangePage::Paint() {
    const std::u16string heading = ItemText(kRangeLabel);
    DropPainted();
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kBackground);
    Surface().DrawTextW(heading, kHeadingPlace,
                        {State.Fonts.FontComic13Bold, kHeadingColor, DT_VCENTER | DT_SINGLELINE});
    Declare({kHeadingPlace, PaintedRole::Header, heading});
    PresentSurface();
}

} // namespace tavo
