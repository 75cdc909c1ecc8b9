// Every command of a menu and every button of a dialog has a handler, and every handler something that calls it.
#include "app/about_dialog.h"
#include "app/find_dialog.h"
#include "app/go_to_date_dialog.h"
#include "app/keys_dialog.h"
#include "app/vantor_view.h"
#include "edit/appointment_dlg.h"
#include "edit/pattern_page.h"
#include "edit/range_page.h"
#include "edit/recurrence_wizard.h"
#include "memo/appointment_view_dlg.h"
#include "memo/copy_memo_dlg.h"
#include "memo/ink_memo_view.h"
#include "page/progress_dlg.h"
#include "res/dialog_templates.h"
#include "res/menus.h"
#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace tavo {

namespace {

using test::RunningProgram;
using testing::IsEmpty;

// Who takes what the controls of each template send.
const std::map<int, const MessageMap*>& MapsByTemplate() {
    static const std::map<int, const MessageMap*> maps{
        {kDialogAbout, &CAboutDlg::Messages()},
        {kDialogClock, &CClockPage::Messages()},
        {kDialogSchedule, &CSchedulePage::Messages()},
        {kDialogCalendar, &CCalendarPage::Messages()},
        {kDialogSettings, &CSettingsPage::Messages()},
        {kDialogAppointment, &CAppointmentDlg::Messages()},
        {kDialogPattern, &CPatternPage::Messages()},
        {kDialogRange, &CRangePage::Messages()},
        {kDialogRecurrence, &CRecurrenceWizard::Messages()},
        {kDialogInkMemo, &CInkMemoView::Messages()},
        {kDialogAppointmentView, &CAppointmentViewDlg::Messages()},
        {kDialogCopyMemo, &CCopyMemoDlg::Messages()},
        {kDialogProgress, &CProgressDlg::Messages()},
        {kDialogFind, &CFindDlg::Messages()},
        {kDialogGoToDate, &CGoToDateDlg::Messages()},
        {kDialogKeys, &CKeysDlg::Messages()},
    };
    return maps;
}

constexpr int kPageTemplates[] = {kDialogClock, kDialogSchedule, kDialogCalendar, kDialogSettings};

// Entries that stand for submenus: the page replaces them before the menu opens, so they are never chosen.
constexpr int kReplacedAtRunTime[] = {kCommandDayAlarms, kCommandDayHolidays, kCommandDayAnniversaries,
                                      kCommandDaySchedules, kCommandDayMemos};

// Commands that no menu and no template holds: sent by the navigation bar, by keys, or put into a menu at run time.
constexpr int kSentByOthers[] = {IDOK,
                                 IDCANCEL,
                                 kCommandDayListLeft,
                                 kCommandInputMode,
                                 kCommandRecorderBar,
                                 kCommandFirstAlarm,
                                 kCommandFirstHoliday,
                                 kCommandFirstAnniversary,
                                 kCommandFirstSchedule,
                                 kCommandFirstMemo};

template <class Visit> void VisitEntries(const MessageMap& map, Visit visit) {
    for (const MessageMap* part = &map; part != nullptr; part = part->Base) {
        for (const MessageEntry& entry : part->Entries) {
            visit(entry);
        }
    }
}

bool Takes(const MessageMap& map, MessageNumber number, int id) {
    Message message;
    message.Number = number;
    message.Id = id;
    message.Code = number == WM_COMMAND ? BN_CLICKED : 0;
    bool takes = false;
    VisitEntries(
        map, [&](const MessageEntry& entry) { takes = takes || (entry.FirstId != kAnyId && entry.Matches(message)); });
    return takes;
}

void Collect(const std::vector<MenuItem>& items, std::vector<int>& commands) {
    for (const MenuItem& item : items) {
        if (item.IsPopup || !item.Children.empty()) {
            Collect(item.Children, commands);
        } else if (!item.IsSeparator) {
            commands.push_back(item.Id);
        }
    }
}

std::vector<int> CommandsOf(const std::vector<MenuItem>& menus) {
    std::vector<int> commands;
    Collect(menus, commands);
    return commands;
}

template <class List> bool Holds(const List& list, int id) {
    return std::find(std::begin(list), std::end(list), id) != std::end(list);
}

// The menus whose choices reach the page or dialog of a template.
std::vector<int> MenuCommandsFor(int dialog) {
    std::vector<int> commands;
    if (Holds(kPageTemplates, dialog)) {
        commands = CommandsOf(LoadMenuW(kMenuPage));
    }
    const std::vector<MenuItem> popups = LoadMenuW(kMenuPopups);
    if (dialog == kDialogSchedule) {
        Collect(popups.at(kPopupSchedule).Children, commands);
    }
    if (dialog == kDialogInkMemo) {
        commands = CommandsOf(LoadMenuW(kMenuInkMemo));
    }
    if (dialog == kDialogCalendar) {
        Collect(popups.at(kPopupCalendar).Children, commands);
    }
    return commands;
}

TEST(Handlers, EveryTemplateHasAClassThatTakesItsMessages) {
    EXPECT_EQ(AllDialogTemplates().size(), MapsByTemplate().size());
    for (const DialogTemplate* form : AllDialogTemplates()) {
        EXPECT_EQ(MapsByTemplate().count(form->Id), 1U) << form->Id;
    }
}

TEST(Handlers, EveryButtonAndScrollBarHasAHandler) {
    std::set<std::pair<int, int>> without;
    int walked = 0;
    for (const DialogTemplate* form : AllDialogTemplates()) {
        for (const DialogItem& item : form->Items) {
            const bool isButton = item.Kind == ControlKind::PushButton || item.Kind == ControlKind::PictureButton;
            if (!isButton && item.Kind != ControlKind::ScrollBar) {
                continue; // boxes, lists and pickers may just be read
            }
            ++walked;
            if (!Takes(*MapsByTemplate().at(form->Id), isButton ? WM_COMMAND : WM_VSCROLL, item.Id)) {
                without.insert({form->Id, item.Id});
            }
        }
    }
    EXPECT_GT(walked, 0);
    EXPECT_THAT(without, IsEmpty());
}

TEST(Handlers, EveryPopupCommandHasAHandler) {
    std::vector<int> without;
    const auto walk = [&](const std::vector<int>& commands, const MessageMap* map) {
        EXPECT_FALSE(commands.empty());
        for (const int command : commands) {
            const bool handled = map != nullptr && Takes(*map, WM_COMMAND, command);
            if (Holds(kReplacedAtRunTime, command)) {
                EXPECT_FALSE(handled) << command;
            } else if (!handled) {
                without.push_back(command);
            }
        }
    };
    const std::vector<MenuItem> popups = LoadMenuW(kMenuPopups);
    walk(CommandsOf(popups.at(kPopupSchedule).Children), &CSchedulePage::Messages());
    walk(CommandsOf(popups.at(kPopupCalendar).Children), &CCalendarPage::Messages());
    walk(CommandsOf(LoadMenuW(kMenuInkMemo)), &CInkMemoView::Messages());
    EXPECT_THAT(without, IsEmpty());
}

class AskedDialogs final : public IFileDialogs {
  public:
    void ChooseImport() override { WasAsked = true; }

    void ChooseWritten(WrittenFile /*what*/, const std::u16string& /*name*/) override { WasAsked = true; }

    void ChoosePrinter(const SYSTEMTIME& /*day*/) override { WasAsked = true; }

    bool WasAsked = false;
};

// The pages have no handler for these: they hand them to the program, whose answer is to be seen.
TEST(Handlers, EveryCommandOfThePagesMenuDoesSomethingOnEveryPage) {
    const std::vector<int> commands = CommandsOf(LoadMenuW(kMenuPage));
    EXPECT_FALSE(commands.empty());
    for (int page = 0; page < 4; ++page) {
        for (const int command : commands) {
            RunningProgram program;
            AskedDialogs dialogs;
            program.Exchange.Dialogs = &dialogs;
            ASSERT_TRUE(program.Start());
            program.ShowPage(page);
            const Oid made = program.GivenAppointment(u"To be undone", test::At(2004, 11, 4), test::At(2004, 11, 4));
            bool opened = false;
            bool undone = false;
            program.Device.ChooseMenu(u"Tools", command);
            program.Device.Do([&] {
                AppointmentData record;
                opened = program.Device.See.IsDialogOpen();
                undone = program.State().Store.LoadAppointment(made, record) == 0;
            });
            program.Device.PressClose();
            static_cast<void>(program.Settle()); // false when the command ended the program
            EXPECT_TRUE(opened || undone || dialogs.WasAsked || program.Device.Host().HasQuit())
                << "page " << page << ", command " << command;
        }
    }
}

TEST(Handlers, EveryHandlerHasAnIdThatIsSent) {
    int walked = 0;
    for (const DialogTemplate* form : AllDialogTemplates()) {
        std::vector<int> sent = MenuCommandsFor(form->Id);
        for (const DialogItem& item : form->Items) {
            sent.push_back(item.Id);
        }
        VisitEntries(*MapsByTemplate().at(form->Id), [&](const MessageEntry& entry) {
            const bool hasId = entry.Number == WM_COMMAND || entry.Number == WM_NOTIFY || entry.Number == WM_VSCROLL;
            if (hasId && entry.FirstId != kAnyId) {
                ++walked;
                EXPECT_TRUE(Holds(sent, entry.FirstId) || Holds(kSentByOthers, entry.FirstId))
                    << "template " << form->Id << ", id " << entry.FirstId;
            }
        });
    }
    EXPECT_GT(walked, 0);
}

} // namespace

} // namespace tavo
