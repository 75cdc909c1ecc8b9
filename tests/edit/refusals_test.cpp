// Saving that is refused: the messages, their order, and a form that keeps every input.
#include "host/outlook/store.h"
#include "host/posix/store_machine.h"
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <map>

namespace tavo::test {
namespace {

using Texts = std::vector<std::u16string>;

const std::u16string kEmpty = u"Tavo Calendar|Subject is empty...";
const std::u16string kTooLong = u"Tavo Calendar|Cannot save. Appointments cannot be longer than 31 days.!";
const std::u16string kRange = u"Tavo Calendar|Enter an integer between 0 and 9999.!";
const std::u16string kRefused = u"Tavo Calendar|Cannot save. Please check the Start/End date and Recurrence pattern.!";

constexpr int kInputs[] = {kEditSubject,       kEditStartDate,    kEditStartTime,  kEditEndDate,
                           kEditEndTime,       kEditAllDay,       kEditRecurrence, kEditReminder,
                           kEditReminderValue, kEditReminderUnit, kEditSound};

// A store that does not wait for others.
headless::DeviceOptions WithImpatientStore() {
    headless::DeviceOptions options;
    options.Outlook = [](const std::filesystem::path& store, ComPtr<IPOutlookApp>& outlook) {
        outlook::StoreOptions hurried;
        hurried.LockPatience = 0;
        outlook = outlook::CreateOutlookApp(posix::SystemMachine(), store, hurried);
        return Status::Ok;
    };
    return options;
}

// While it lives no file of this process grows, as on a full disk.
class FullDisk {
  public:
    FullDisk() : OldAction(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &Old), 0);
        rlimit full = Old;
        full.rlim_cur = 1;
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    }

    ~FullDisk() {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &Old), 0);
        std::signal(SIGXFSZ, OldAction);
    }

    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit Old{};
    void (*OldAction)(int);
};

struct Input {
    std::u16string Text;
    int Choice = 0;
    bool Checked = false;
    SYSTEMTIME Time;
    friend bool operator==(const Input&, const Input&) = default;
};

class Refusals : public testing::Test {
  protected:
    // OK, the refusal's message, and its answer; the form must be as it was before.
    void RefuseOk(const std::u16string& message) {
        Desk.Check([this] { Before = ReadInputs(); });
        Desk.Ok();
        Desk.Check([this, message] {
            ASSERT_FALSE(Desk.Messages().empty());
            EXPECT_EQ(Desk.Messages().back(), message);
            EXPECT_TRUE(Desk.Calls.empty());
        });
        Desk.Device.AnswerBox(IDOK);
        Desk.Check([this] {
            EXPECT_EQ(Desk.Device.See.Caption(), u"Tavo Calendar");
            EXPECT_TRUE(Desk.Device.See.IsDialogOpen());
            EXPECT_TRUE(ReadInputs() == Before);
        });
    }

    void ExpectMessages(const Texts& messages) { EXPECT_EQ(Desk.Messages(), messages); }

    std::map<int, Input> ReadInputs() {
        std::map<int, Input> inputs;
        IControls& controls = Desk.Device.Host().Controls();
        for (const int id : kInputs) {
            const WindowHandle control = Desk.Device.See.Control(id);
            inputs[id] = {controls.GetWindowTextW(control), controls.GetCurSel(control), controls.GetCheck(control),
                          controls.GetSystemtime(control)};
        }
        return inputs;
    }

    EditDesk Desk{At(2026, 11, 21, 9, 47), WithImpatientStore()};
    std::map<int, Input> Before;
};

TEST_F(Refusals, AnEmptySubjectIsRefusedFirst) {
    Desk.PickEndDate(2027, 11, 21); // too long as well
    Desk.ChooseReminder(true);
    Desk.TypeLead(u"10000"); // and out of range
    RefuseOk(kEmpty);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
    ExpectMessages({kEmpty});
    EXPECT_EQ(Desk.CountItems(), 0);
}

TEST_F(Refusals, TheLengthIsRefusedBeforeTheLead) {
    Desk.Subject(u"Thing");
    Desk.PickEndDate(2027, 11, 21);
    Desk.ChooseReminder(true);
    Desk.TypeLead(u"10000");
    RefuseOk(kTooLong);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
    ExpectMessages({kTooLong});
}

TEST_F(Refusals, ThirtyOneDaysAreTooLong) {
    Desk.Subject(u"Thing");
    Desk.PickEndDate(2026, 12, 22);
    RefuseOk(kTooLong);
    Desk.PickEndTime(9, 29); // a minute less
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    ExpectMessages({kTooLong});
    EXPECT_EQ(Desk.Read(Desk.LastSaved()).Duration, 31 * 1440 - 1);
}

TEST_F(Refusals, ALengthAcrossTheClockChangeCountsWholeDays) {
    Desk.Subject(u"Thing");
    Desk.PickStartDate(2027, 3, 1);
    Desk.PickEndDate(2027, 4, 1);
    RefuseOk(kTooLong);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDCANCEL);
}

TEST_F(Refusals, TheLeadMustBeAnIntegerBetweenNoneAndNineThousandNineHundredNinetyNine) {
    Desk.Subject(u"Thing");
    Desk.ChooseReminder(true);
    for (const std::u16string_view lead : {u"10000", u"abc", u"99999999999999999999"}) {
        Desk.TypeLead(std::u16string(lead));
        RefuseOk(kRange);
    }
    Desk.TypeLead(u"9999");
    Desk.ChooseLeadUnit(0);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewHoliday), IDOK);
    ExpectMessages({kRange, kRange, kRange});
    EXPECT_EQ(Desk.Read(Desk.LastSaved()).ReminderMinutes, 9999);
}

TEST_F(Refusals, TheRefusedLeadIsShownToBeMended) {
    Desk.Subject(u"Thing");
    Desk.ChooseReminder(true);
    Desk.TypeLead(u"10000");
    Desk.Device.Tap(2, 2); // hides it
    RefuseOk(kRange);
    Desk.Check([&] { EXPECT_EQ(Desk.ShownEditingControls(), std::vector{kEditReminderValue}); });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunNew(kModeNewHoliday), IDCANCEL);
}

TEST_F(Refusals, ALeadThatIsNotUsedIsNotRead) {
    Desk.Subject(u"Thing");
    Desk.ChooseReminder(true);
    Desk.TypeLead(u"10000");
    Desk.ChooseReminder(false);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewHoliday), IDOK);
    ExpectMessages({});
}

TEST_F(Refusals, AnEndBeforeItsStartIsRefusedByTheStore) {
    AppointmentData item = Desk.Load(Desk.GivenAppointment(u"Talk", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0)));
    item.End = At(2026, 11, 23, 8, 0);
    RefuseOk(kRefused);
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAppointment, item), IDCANCEL);
    ExpectMessages({kRefused});
    EXPECT_EQ(Desk.Read(item.Oid).End, Desk.ToDate(At(2026, 11, 23, 10, 0)));
}

TEST_F(Refusals, ARuleThatTheStoreRefusesCanBeGivenUp) {
    Desk.Subject(u"Thing");
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.TypeIntoShown(kPatternWeekInterval, u"1000");
    Desk.TapShown(kWizardNext);
    Desk.TapShown(kWizardNext);
    RefuseOk(kRefused);
    Desk.ChooseRecurrence(kChoiceMonthly);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    ExpectMessages({kRefused});
    EXPECT_EQ(Desk.ReadPattern(Desk.LastSaved()).Type, kRecursMonthly);
}

TEST_F(Refusals, ARuleWhoseIntervalWasLeftEmptySaysSo) {
    const std::u16string withReason = u"Tavo Calendar|Cannot save. Please check the Start/End date and Recurrence "
                                      u"pattern.\n\nThe recurrence pattern has no interval.!";
    for (const int tab : {30, 90}) { // days, weeks
        Desk.Subject(u"Thing");
        Desk.ChooseRecurrence(kChoiceCustom);
        Desk.Device.Tap(tab, 12);
        Desk.TapShown(kWizardNext);
        Desk.TapShown(kWizardNext);
        RefuseOk(withReason);
        RefuseOk(withReason);
        Desk.Cancel();
        EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    }
    ExpectMessages({withReason, withReason, withReason, withReason});
}

TEST_F(Refusals, ARuleThatHasItsIntervalIsNotBlamedForALockedStore) {
    const ComPtr<IPOutlookApp> other = Desk.Connect();
    Desk.Subject(u"Thing");
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.TypeIntoShown(kPatternWeekInterval, u"1");
    Desk.TapShown(kWizardNext);
    Desk.TapShown(kWizardNext);
    Desk.Check([&] { EXPECT_EQ(other->Begin(u"Import"), Status::Ok); });
    RefuseOk(kRefused);
    Desk.Check([&] { EXPECT_EQ(other->Abandon(), Status::Ok); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    ExpectMessages({kRefused});
}

TEST_F(Refusals, AnItemThatAnotherProgramDeletedMeanwhileIsNotSaved) {
    const Oid oid = Desk.GivenAppointment(u"Talk", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0));
    const Oid other = Desk.GivenAppointment(u"Other", At(2026, 11, 24, 9, 0), At(2026, 11, 24, 10, 0));
    Desk.Subject(u"Changed");
    Desk.Check([&] { Desk.Delete(oid); });
    RefuseOk(kRefused);
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDCANCEL);
    ExpectMessages({kRefused});
    EXPECT_EQ(Desk.CountItems(), 1);
    EXPECT_EQ(Desk.Read(other).Subject, u"Other");
}

TEST_F(Refusals, AnItemThatWasGoneAtOpeningIsNotSaved) {
    const Oid oid = Desk.GivenAppointment(u"Talk", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0));
    const AppointmentData item = Desk.Load(oid);
    Desk.Delete(oid);
    Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditSubject), u"Talk"); });
    RefuseOk(kRefused);
    RefuseOk(kRefused);
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAppointment, item), IDCANCEL);
    EXPECT_EQ(Desk.CountItems(), 0);
}

TEST_F(Refusals, ALockedStoreIsToldAndTheNextOkSaves) {
    const ComPtr<IPOutlookApp> other = Desk.Connect();
    Desk.Subject(u"Thing");
    Desk.Check([&] { EXPECT_EQ(other->Begin(u"Import"), Status::Ok); });
    RefuseOk(kRefused);
    Desk.Check([&] { EXPECT_EQ(other->Abandon(), Status::Ok); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    ExpectMessages({kRefused});
    EXPECT_EQ(Desk.CountItems(), 1);
    EXPECT_EQ(Desk.Read(Desk.LastSaved()).Subject, u"Thing");
}

TEST_F(Refusals, AFullDiskIsToldAndTheNextOkSaves) {
    std::optional<FullDisk> disk;
    Desk.Subject(u"Thing");
    Desk.Check([&] { disk.emplace(); });
    RefuseOk(kRefused);
    Desk.Check([&] { disk.reset(); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAppointment), IDOK);
    ExpectMessages({kRefused});
    EXPECT_EQ(Desk.CountItems(), 1);
}

TEST_F(Refusals, TheSubjectTakesTwoHundredFiftyNineUnits) {
    const std::u16string longest(259, u'x');
    Desk.Subject(longest);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    EXPECT_EQ(Desk.Read(Desk.LastSaved()).Subject, longest);
    Desk.Subject(longest + u"y");
    Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditSubject), longest); });
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    EXPECT_EQ(Desk.Read(Desk.LastSaved()).Subject, longest);
}

TEST_F(Refusals, ALongerStoredSubjectThatIsChangedIsCutAtTheLimit) {
    const Oid oid = Desk.GivenAppointment(std::u16string(300, u'x'), At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0));
    Desk.Subject(std::u16string(300, u'y'));
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(Desk.Read(oid).Subject, std::u16string(259, u'y'));
}

TEST_F(Refusals, ACharacterOfTwoUnitsIsNotCutInHalf) {
    // The middle, the first and the last of those with two units.
    for (const std::u16string_view character : {u"\U0001F382", u"\U00010000", u"\U0010FFFF"}) {
        Desk.Subject(std::u16string(258, u'x') + std::u16string(character));
        Desk.Ok();
        EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
        EXPECT_EQ(Desk.Read(Desk.LastSaved()).Subject, std::u16string(258, u'x'));
    }
}

TEST_F(Refusals, ACharacterOfTwoUnitsThatEndsAtTheLimitStaysWhole) {
    for (const std::u16string_view character : {u"\U0001F382", u"\U00010000", u"\U0010FFFF"}) {
        const std::u16string longest = std::u16string(257, u'x') + std::u16string(character);
        Desk.Subject(longest);
        Desk.Ok();
        EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
        EXPECT_EQ(Desk.Read(Desk.LastSaved()).Subject, longest);
    }
}

TEST_F(Refusals, ASeriesThatWasRefusedAsOnceCanBeOneAgain) {
    const Oid oid = Desk.GivenSeries(u"Class", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0), kRecursWeekly);
    const ComPtr<IPOutlookApp> other = Desk.Connect();
    Desk.ChooseRecurrence(kChoiceOnce);
    Desk.Check([&] { EXPECT_EQ(other->Begin(u"Import"), Status::Ok); });
    RefuseOk(kRefused);
    Desk.Check([&] { EXPECT_EQ(other->Abandon(), Status::Ok); });
    Desk.ChooseRecurrence(kChoiceMonthly);
    Desk.Ok();
    EXPECT_EQ(Desk.RunExisting(kModeAppointment, oid), IDOK);
    EXPECT_EQ(Desk.ReadPattern(oid).Type, kRecursMonthly);
}

TEST_F(Refusals, EmojiAndRightToLeftTextAreSavedAsTyped) {
    const std::u16string text =
        u"\u05D9\u05D5\u05DD \u05D4\u05D5\u05DC\u05D3\u05EA \U0001F382\U0001F468\u200D\U0001F469";
    Desk.Subject(text);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAnniversary), IDOK);
    EXPECT_EQ(Desk.Read(Desk.LastSaved()).Subject, text);
}

} // namespace
} // namespace tavo::test
