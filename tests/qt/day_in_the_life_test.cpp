// From an empty device to a full one and over a restart, worked by mouse and keyboard as a person would.
#include "host/outlook/store.h"
#include "host/qt/menu_view.h"
#include "res/resource_ids.h"
#include "tests/qt/desktop_program.h"
#include "tests/qt/hands.h"

#include <QAction>
#include <QMenu>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavo::qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr int kTabY = 250;
constexpr int kScheduleTab = 90; // x in the page bar
constexpr int kCalendarTab = 150;
constexpr int kNextKindX = 196;
constexpr int kArrowY = 20;
constexpr int kRowHeight = 26; // of the editor
constexpr std::chrono::milliseconds kNoticePeriod(600);
constexpr std::chrono::milliseconds kPaintTime(100); // a dialog is painted by then

// How a kind is written in the editor: places of its rows.
struct KindForm {
    std::u16string_view Subject;
    int Key;
    int Top;
    int RecurrenceRow;
    int ReminderRow; // none where it always reminds
    int MemoRow;
    int Choice;
};

constexpr int kNone = -1;
constexpr KindForm kForms[] = {{u"Wake up", '1', 15, 3, kNone, 5, kChoiceEveryday},
                               {u"New Year", '2', 15, 2, 3, 5, kChoiceYearly},
                               {u"Wedding", '3', 15, 2, 3, 5, kChoiceYearly},
                               {u"Course", '4', 10, 4, 5, 7, kChoiceWeekly}};

class DayInTheLife : public testing::Test {
  protected:
    void Start() { Program.emplace(Root); }

    void TapRow(const KindForm& form, int row) { Program->Tap(100, form.Top + row * kRowHeight + kRowHeight / 2); }

    void DrawAndKeep() {
        Program->Pass(kPaintTime);
        Program->Do([this] { ASSERT_EQ(Program->Caption(), u"Memo"); });
        Program->Tap(60, 60);
        Program->Tap(90, 80);
        Program->Key(VK_RETURN);
        Program->Pass(kPaintTime);
    }

    void MakeItem(const KindForm& form) {
        Program->Key(form.Key, kModifierControl);
        TapRow(form, 0);
        Program->Type(form.Subject);
        TapRow(form, form.RecurrenceRow);
        Program->Choose(kEditRecurrence, form.Choice);
        if (form.ReminderRow != kNone) {
            Program->Tap(80, form.Top + form.ReminderRow * kRowHeight + kRowHeight / 2);
            Program->Choose(kEditReminder, 0);
        }
        TapRow(form, form.MemoRow);
        DrawAndKeep();
        Program->TapControl(IDOK);
        Program->Do([this] { ASSERT_FALSE(Program->IsDialogOpen()); });
    }

    void Open(int tab) {
        Program->Tap(tab, kTabY);
        Program->Pass(kNoticePeriod);
    }

    void NextKind() { Program->Tap(kNextKindX, kArrowY); }

    // Of the list on show, as far as they are seen.
    std::vector<std::u16string> Rows() {
        std::vector<std::u16string> rows;
        for (int row = 0; row < 5; ++row) {
            if (std::u16string name = Program->NameOf(PaintedRole::Row, row); !name.empty()) {
                name.resize(std::min(name.find(u", "), name.size()));
                rows.push_back(std::move(name));
            }
        }
        return rows;
    }

    // Taps the row that begins so, and chooses from its menu.
    void ChooseInRow(std::u16string_view heading, int command, int top, int height) {
        Program->Do([this, heading, top, height] {
            const std::vector<std::u16string> rows = Rows();
            for (std::size_t row = 0; row < rows.size(); ++row) {
                if (rows[row].ends_with(heading)) {
                    const int y = kClientArea.Top + top + static_cast<int>(row) * height;
                    TapMiddle(Program->Host, {0, y, 200, y + height});
                    return;
                }
            }
            ADD_FAILURE() << "no such row";
        });
        Program->ChooseTracked(command);
    }

    void ChooseTagged(std::u16string_view heading, int command) { ChooseInRow(heading, command, 37, 51); }

    void ChooseAppointment(std::u16string_view heading, int command) { ChooseInRow(heading, command, 71, 34); }

    std::vector<std::string> DayMenuTexts() {
        std::vector<std::string> texts;
        Program->Key(VK_RETURN);
        Program->Do([&] {
            QMenu* menu = Program->Host.OpenMenu().Current();
            ASSERT_NE(menu, nullptr);
            for (const QAction* action : menu->actions()) {
                if (!action->isSeparator()) {
                    texts.push_back(action->text().toStdString());
                }
            }
            QTest::keyClick(menu, Qt::Key_Escape);
        });
        EXPECT_TRUE(Program->Settle());
        return texts;
    }

    std::u16string TodaysCell() {
        const SYSTEMTIME today = Program->Host.Clock().GetLocalTime();
        const int weekdayOfFirst = (today.DayOfWeek - (today.Day - 1) % 7 + 7) % 7;
        return Program->NameOf(PaintedRole::Cell, weekdayOfFirst + today.Day - 1);
    }

    AppointmentData Load(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(Program->State().Store.LoadAppointment(oid, record), oid);
        return record;
    }

    std::vector<std::uint8_t> InkOf(Oid oid) {
        ComPtr<IAppointment> item;
        std::vector<std::uint8_t> ink;
        EXPECT_EQ(Program->State().Store.OutlookApp->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_EQ(item->get_BodyInk(ink), Status::Ok);
        return ink;
    }

    // The rows of the lists of the four kinds, from the Schedule page at the first of them; comes back to it.
    std::vector<std::vector<std::u16string>> AllLists() {
        std::vector<std::vector<std::u16string>> lists;
        for (int kind = 0; kind < 4; ++kind) {
            Program->Do([&] { lists.push_back(Rows()); });
            NextKind();
        }
        EXPECT_TRUE(Program->Settle());
        return lists;
    }

    std::shared_ptr<TemporaryRoot> Root = std::make_shared<TemporaryRoot>();
    std::optional<DesktopProgram> Program;
};

// The alarm's heading begins with its hour, which is that of the test.
MATCHER_P(EndsWith, text, "") {
    return arg.ends_with(text);
}

TEST_F(DayInTheLife, WhatWasMadeFoundChangedAndBroughtBackIsThereTheNextDay) {
    Start();
    for (const KindForm& form : kForms) {
        MakeItem(form);
    }
    ASSERT_TRUE(Program->Settle());

    // The four in the store, each with recurrence, reminder and ink.
    ASSERT_EQ(Program->State().Store.CountAppointments(), 4);
    std::map<Oid, std::vector<std::uint8_t>> ink;
    for (Oid oid = 1; oid <= 4; ++oid) {
        const KindForm& form = kForms[oid - 1];
        EXPECT_EQ(Load(oid).Subject, form.Subject);
        EXPECT_EQ(Load(oid).RecurChoice, form.Choice) << oid;
        EXPECT_TRUE(Load(oid).HasReminder) << oid;
        ink[oid] = InkOf(oid);
        EXPECT_THAT(ink[oid], Not(IsEmpty())) << oid;
    }

    // On the month and in the day's menu, with a memo of the day.
    Open(kCalendarTab);
    ASSERT_TRUE(Program->Settle());
    EXPECT_TRUE(TodaysCell().ends_with(u": alarm, holiday, anniversary, appointment"))
        << QString::fromStdU16String(TodaysCell()).toStdString();
    Program->Key(VK_RETURN);
    Program->ChooseTracked(kCommandAddMemo);
    DrawAndKeep();
    ASSERT_TRUE(Program->Settle());
    const std::vector<std::string> day = DayMenuTexts();
    EXPECT_THAT(
        day, ElementsAre("Alarm: 1", "Holiday: 1", "Anniversary: 1", "Schedule: 1", "Memo: 1", "Add memo...", "New"));

    // In the lists: copied, modified, deleted and brought back. The page shows the kind that was made last.
    Open(kScheduleTab);
    NextKind();
    std::vector<std::vector<std::u16string>> lists = AllLists();
    EXPECT_THAT(lists[0], ElementsAre(EndsWith(u"Wake up")));
    EXPECT_THAT(lists[1], ElementsAre(u"New Year"));
    EXPECT_THAT(lists[2], ElementsAre(u"Wedding"));
    EXPECT_THAT(lists[3], SizeIs(5));
    NextKind();
    NextKind();
    NextKind();
    ChooseAppointment(u"Course", kCommandCopyToHoliday);
    NextKind();
    NextKind();
    NextKind(); // the anniversaries
    ChooseTagged(u"Wedding", kCommandModify);
    TapRow(kForms[2], 0);
    Program->Key('A', kModifierControl);
    Program->Type(u"Golden wedding");
    Program->TapControl(IDOK);
    Program->Pass(kNoticePeriod);
    NextKind();
    NextKind(); // the alarms
    ChooseTagged(u"Wake up", kCommandDelete);
    Program->AnswerBox(IDYES);
    Program->Pass(kNoticePeriod);
    ASSERT_TRUE(Program->Settle());
    EXPECT_EQ(Program->State().Store.CountAppointments(), 3);
    EXPECT_THAT(Rows(), IsEmpty());
    Program->Key('Z', kModifierControl);
    Program->Pass(kNoticePeriod);
    ASSERT_TRUE(Program->Settle());
    lists = AllLists();
    EXPECT_THAT(lists[0], ElementsAre(EndsWith(u"Wake up")));
    EXPECT_THAT(lists[1], ElementsAre(u"New Year", u"Course"));
    EXPECT_THAT(lists[2], ElementsAre(u"Golden wedding"));

    // Quit as a person does; what waited to be written is written.
    Program->Key('Q', kModifierControl);
    EXPECT_FALSE(Program->Settle());
    Program.reset();

    Start();
    ASSERT_EQ(Program->State().Store.CountAppointments(), 4);
    Open(kScheduleTab);
    EXPECT_EQ(AllLists(), lists);
    Open(kCalendarTab);
    EXPECT_EQ(DayMenuTexts(), (std::vector<std::string>{"Alarm: 1", "Holiday: 2", "Anniversary: 1", "Schedule: 0",
                                                        "Memo: 1", "Add memo...", "New"}));
    for (Oid oid = 1; oid <= 4; ++oid) {
        EXPECT_EQ(Load(oid).RecurChoice, kForms[oid - 1].Choice) << oid;
        EXPECT_TRUE(Load(oid).HasReminder) << oid;
        EXPECT_EQ(InkOf(oid), ink[oid]) << oid;
    }
}

} // namespace
} // namespace tavo::qt
