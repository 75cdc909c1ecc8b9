// Ten thousand taps, keys and choices in no order at all: what was saved is what the form said.
#include "tests/edit/edit_desk.h"
#include "tests/edit/wizard_said.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

namespace tavo::test {
namespace {

constexpr int kSteps = 10000;
constexpr unsigned kSeed = 20261121;
constexpr int kLastRow = 225; // taps below hit the buttons

// What the form said just before the last thing that was done.
struct FormSaid {
    std::u16string Subject;
    SYSTEMTIME StartDate;
    SYSTEMTIME StartTime;
    SYSTEMTIME EndDate;
    SYSTEMTIME EndTime;
    bool AllDay = false;
    int Recurrence = 0;
    bool Reminds = false;
    std::u16string Lead;
    int Unit = 0;
    std::u16string Sound;
};

struct ModelItem {
    ItemKind Kind = ItemKind::Appointment;
    std::u16string Subject;
    DATE Start = 0;
    DATE End = 0;
    bool AllDay = false;
    bool Reminds = false;
    std::int32_t Lead = 0;
    std::u16string Sound;
    int Recurrence = 0;
    SaidRule CustomRule; // as the wizard said it when it was done
};

constexpr std::int32_t kTypeOfChoice[] = {-1, 0, 1, 1, 2, 3, 5, 6};

class RandomWalk : public testing::Test {
  protected:
    int Random(int below) { return static_cast<int>(Generator() % static_cast<unsigned>(below)); }

    bool Chance(int percent) { return Random(100) < percent; }

    shell::Shell& Shell() { return Desk.Device.Host().State; }

    bool IsInWizard() { return Desk.Device.See.Caption() == u"Recurrence"; }

    void Look();
    void LookAtWizard();
    void LookAtBox();
    void DoSomething();
    void UseShownControl();
    void UseWizard();
    void PressSomeKey();
    void Press(int key, int modifiers = 0);
    void Walk();

    void RunOnce();
    ModelItem Expected();
    void Compare(Oid oid, const ModelItem& model);

    DATE Moment(const SYSTEMTIME& date, const SYSTEMTIME& time) {
        return Desk.ToDate(At(date.Year, date.Month, date.Day)) +
               (time.Hour * 3600 + time.Minute * 60 + time.Second) / 86400.0;
    }

    EditDesk Desk;
    std::mt19937 Generator{kSeed};
    ItemKind Kind = ItemKind::Appointment;
    FormSaid Said;
    SaidRule WizardSays;              // while it is open
    std::optional<SaidRule> RuleMade; // by a wizard that was done, in this editor
    bool WizardWasOpen = false;
    bool WizardCancelled = false; // by the last thing that was done in it
    std::map<Oid, ModelItem> Model;
    int Steps = 0;
    int Saved = 0;
    int Refused = 0;
    int BoxesSeen = 0;
    int NoDayBoxes = 0;
    int CustomRules = 0;
};

void RandomWalk::LookAtWizard() {
    const bool isOpen = IsInWizard();
    if (isOpen && !WizardWasOpen) {
        WizardSays = {};
        RuleMade.reset();
    } else if (!isOpen && WizardWasOpen && !WizardCancelled) {
        RuleMade = WizardSays;
    }
    if (isOpen) {
        ReadWizard(Desk, WizardSays);
    }
    WizardWasOpen = isOpen;
    WizardCancelled = false;
}

void RandomWalk::Look() {
    if (!Shell().Menus.Boxes.empty()) {
        return;
    }
    LookAtWizard();
    if (IsInWizard()) {
        return;
    }
    headless::DeviceSight& see = Desk.Device.See;
    Said = {see.TextOf(kEditSubject),
            Desk.PickerOf(kEditStartDate),
            Desk.PickerOf(kEditStartTime),
            Desk.PickerOf(kEditEndDate),
            Desk.PickerOf(kEditEndTime),
            see.IsChecked(kEditAllDay),
            see.SelectionOf(kEditRecurrence),
            see.SelectionOf(kEditReminder) == 0,
            see.TextOf(kEditReminderValue),
            see.SelectionOf(kEditReminderUnit),
            see.TextOf(kEditSound)};
}

// Every message must have its reason in what the form said.
void RandomWalk::LookAtBox() {
    const std::vector<std::u16string> messages = Desk.Messages();
    if (static_cast<int>(messages.size()) == BoxesSeen) {
        return;
    }
    BoxesSeen = static_cast<int>(messages.size());
    ++Refused;
    const std::u16string& text = messages.back();
    const double span = Moment(Said.EndDate, Said.EndTime) - Moment(Said.StartDate, Said.StartTime);
    const bool isLeadWrong = Said.Lead.empty() || Said.Lead.size() > 4;
    if (text == u"Tavo Calendar|Subject is empty...") {
        EXPECT_TRUE(Said.Subject.empty());
    } else if (text == u"Tavo Calendar|Cannot save. Appointments cannot be longer than 31 days.!") {
        EXPECT_EQ(Kind, ItemKind::Appointment);
        EXPECT_GE(span, 30.9999);
    } else if (text == u"Tavo Calendar|Enter an integer between 0 and 9999.!") {
        EXPECT_TRUE(Said.Reminds && isLeadWrong);
    } else if (text == u"|At least one day must be selected.") {
        ++NoDayBoxes;
        EXPECT_TRUE(WizardWasOpen);
        EXPECT_EQ(WizardSays.Type, kRecursWeekly);
        EXPECT_EQ(WizardSays.Mask & (WizardSays.Mask - 1), 0); // the last one was tapped off
    } else {
        const bool lacksInterval = RuleMade && RuleMade->Interval < 1;
        EXPECT_EQ(text, lacksInterval ? u"Tavo Calendar|Cannot save. Please check the Start/End date and Recurrence "
                                        u"pattern.\n\nThe recurrence pattern has no interval.!"
                                      : u"Tavo Calendar|Cannot save. Please check the Start/End date and Recurrence "
                                        u"pattern.!");
        EXPECT_EQ(Said.Recurrence, kChoiceCustom); // nothing else in the form can be refused by the store
    }
}

void RandomWalk::Press(int key, int modifiers) {
    const bool isOnCancel = Desk.Device.Host().Windows().GetFocus() == Desk.Shown(IDCANCEL);
    WizardCancelled = key == VK_ESCAPE || (isOnCancel && (key == VK_RETURN || key == VK_SPACE));
    Desk.Device.Key(key, modifiers);
}

void RandomWalk::PressSomeKey() {
    constexpr int keys[] = {VK_TAB, VK_TAB, VK_DOWN, VK_UP, VK_SPACE, VK_BACK, VK_LEFT, VK_HOME};
    const int key = keys[Random(std::size(keys))];
    if (Chance(3)) {
        Press(Chance(85) ? VK_RETURN : VK_ESCAPE);
    } else if (Chance(30)) {
        Desk.Device.Type(std::u16string(1, Chance(50) ? static_cast<char16_t>(u'0' + Random(10)) : u'a'));
    } else {
        Press(key, key == VK_DOWN && Chance(50) ? kModifierAlt : Chance(20) ? kModifierShift : 0);
    }
}

void RandomWalk::UseShownControl() {
    const std::vector<int> shown = Desk.ShownEditingControls();
    if (shown.empty() || !Desk.Device.See.IsEnabled(shown.front())) {
        return;
    }
    const int control = shown.front();
    switch (control) {
    case kEditSubject:
        Desk.Device.TypeInto(control,
                             Chance(10) ? u"" : u"Item " + std::u16string(1, static_cast<char16_t>(u'a' + Random(26))));
        break;
    case kEditReminderValue:
        Desk.Device.TypeInto(control, std::u16string(static_cast<std::size_t>(1 + Random(5)), u'7'));
        break;
    case kEditStartDate:
    case kEditEndDate:
        Desk.Device.PickDate(control, 2026 + Random(2), 1 + Random(3), 1 + Random(28));
        break;
    case kEditStartTime:
    case kEditEndTime:
        Desk.Device.PickTime(control, Random(24), Random(60));
        break;
    default:
        Desk.Device.TapControl(control);
        break;
    }
}

void RandomWalk::UseWizard() {
    constexpr int toggles[] = {kPatternSunday,   kPatternMonday, kPatternTuesday, kPatternWednesday,
                               kPatternThursday, kPatternFriday, kPatternSaturday};
    const int toggle = toggles[Random(std::size(toggles))];
    if (Desk.Shown(kPatternWeekInterval) != WindowHandle::None && Chance(25)) {
        Desk.TapShown(toggle);
    } else if (Chance(40)) {
        Desk.Device.Tap(Random(240), Random(150));
    } else if (Chance(50)) {
        const bool goesOn = Chance(80);
        WizardCancelled = !goesOn;
        Desk.TapShown(goesOn ? kWizardNext : IDCANCEL);
    } else if (Chance(10)) {
        Press(VK_RETURN);
    } else if (const WindowHandle interval = Desk.Shown(kPatternWeekInterval); interval != WindowHandle::None) {
        Desk.TypeIntoShown(kPatternWeekInterval, std::u16string(1, static_cast<char16_t>(u'0' + Random(10))));
    } else {
        PressSomeKey();
    }
}

void RandomWalk::DoSomething() {
    if (!Shell().Menus.Boxes.empty()) {
        Desk.Device.AnswerBox(IDOK);
    } else if (Shell().OpenList != WindowHandle::None) {
        const WindowHandle list = Shell().OpenList;
        const auto count = static_cast<int>(Shell().Tree.FindControl(list)->Items.size());
        if (count == 0 || Chance(15)) {
            Desk.Device.Host().ControlActions.CloseList(list);
        } else {
            Desk.Device.Host().ControlActions.Choose(list, Random(count));
        }
    } else if (IsInWizard()) {
        UseWizard();
    } else if (Chance(40)) {
        Desk.Device.Tap(Random(240), Random(kLastRow));
    } else if (Chance(60)) {
        UseShownControl();
    } else if (Chance(12)) {
        Chance(75) ? Desk.Ok() : Desk.Cancel();
    } else {
        PressSomeKey();
    }
}

// One step after the other, as long as the dialog is open.
void RandomWalk::Walk() {
    Desk.Device.Do([this] {
        if (!Desk.Device.See.IsDialogOpen()) {
            return;
        }
        LookAtBox();
        Look();
        ++Steps;
        DoSomething();
        Walk();
    });
}

ModelItem RandomWalk::Expected() {
    ModelItem item;
    item.Kind = Kind;
    item.Subject = Said.Subject;
    const bool isDay = Kind == ItemKind::Holiday || Kind == ItemKind::Anniversary;
    item.Start = Moment(Said.StartDate, isDay ? SYSTEMTIME{} : Said.StartTime);
    item.End = Kind == ItemKind::Appointment ? Moment(Said.EndDate, Said.EndTime) : item.Start;
    item.AllDay = isDay || (Kind == ItemKind::Appointment && Said.AllDay);
    item.Reminds = Kind == ItemKind::Alarm || Said.Reminds;
    if (item.Reminds && Kind != ItemKind::Alarm) {
        constexpr int units[] = {1, 60, 1440};
        for (const char16_t digit : Said.Lead) {
            item.Lead = item.Lead * 10 + (digit - u'0');
        }
        item.Lead *= units[Said.Unit];
    }
    if (item.Reminds && Said.Sound != u"Sound off") {
        item.Sound = Said.Sound;
    }
    item.Recurrence = Said.Recurrence;
    return item;
}

void RandomWalk::Compare(Oid oid, const ModelItem& model) {
    constexpr double halfSecond = 0.5 / 86400;
    const SavedItem saved = Desk.Read(oid);
    EXPECT_EQ(saved.Subject, model.Subject);
    EXPECT_EQ(saved.AllDay, model.AllDay);
    EXPECT_EQ(saved.Busy, kBusyBusy);
    EXPECT_EQ(saved.ReminderSet, model.Reminds);
    EXPECT_EQ(saved.IsRecurring, model.Recurrence != kChoiceOnce);
    if (model.Reminds) {
        EXPECT_EQ(saved.ReminderMinutes, model.Lead);
        EXPECT_EQ(saved.ReminderSound, model.Sound);
        EXPECT_EQ(saved.ReminderOptions, model.Sound.empty() ? 21 : 29);
    }
    if (model.Recurrence == kChoiceCustom) {
        ExpectRule(Desk, Desk.ReadPattern(oid), model.CustomRule);
        return; // its days are the pattern's
    }
    EXPECT_NEAR(saved.Start, model.Start, halfSecond);
    EXPECT_NEAR(saved.End, model.End, halfSecond);
    if (model.Recurrence != kChoiceOnce) {
        const SavedPattern pattern = Desk.ReadPattern(oid);
        const int weekday = (static_cast<int>(std::floor(model.Start)) + 6) % 7; // day 0 was a Saturday
        EXPECT_EQ(pattern.Type, kTypeOfChoice[model.Recurrence]);
        EXPECT_EQ(pattern.Mask, model.Recurrence == kChoiceWeekdays ? 62 : 1 << weekday);
        EXPECT_EQ(pattern.Interval, 1);
        EXPECT_TRUE(pattern.NoEnd);
        EXPECT_EQ(std::floor(pattern.Start), std::floor(model.Start));
    }
}

void RandomWalk::RunOnce() {
    Oid oid = 0;
    if (!Model.empty() && Chance(50)) {
        auto found = Model.begin();
        std::advance(found, Random(static_cast<int>(Model.size())));
        oid = found->first;
        Kind = found->second.Kind;
    } else {
        Kind = static_cast<ItemKind>(Random(4));
    }
    RuleMade.reset();
    WizardWasOpen = false;
    WizardCancelled = false;
    const std::int32_t mode = ModeOfNew(Kind) + (oid == 0 ? 0 : 1);
    Walk();
    const int result = oid == 0 ? Desk.RunNew(mode) : Desk.RunExisting(mode, oid);
    if (result == IDOK) {
        ++Saved;
        ASSERT_EQ(Desk.LastSaved() == oid, oid != 0);
        oid = Desk.LastSaved();
        ModelItem item = Expected();
        if (item.Recurrence == kChoiceCustom) {
            ++CustomRules;
            ASSERT_TRUE(RuleMade || Model.count(oid) != 0) << "a rule that no wizard made";
            item.CustomRule = RuleMade ? *RuleMade : Model.at(oid).CustomRule;
        }
        Model[oid] = item;
    } else {
        ASSERT_EQ(result, IDCANCEL);
    }
    if (oid != 0) {
        Compare(oid, Model.at(oid)); // cancelled: as it was before
    }
    ASSERT_EQ(Desk.CountItems(), static_cast<std::int32_t>(Model.size()));
}

TEST_F(RandomWalk, TheStoreHoldsWhatTheFormSaid) {
    while (Steps < kSteps && !HasFailure()) {
        RunOnce();
    }
    for (const auto& [oid, item] : Model) {
        Compare(oid, item);
    }
    EXPECT_GT(Saved, 50); // it went somewhere
    EXPECT_GT(Refused, 20);
    EXPECT_GT(CustomRules, 0);
    EXPECT_GT(NoDayBoxes, 0);
    RecordProperty("saved", Saved);
}

} // namespace
} // namespace tavo::test
