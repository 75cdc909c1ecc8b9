// The counted boxes of the Settings page, and its one button.
#include "settings/settings_page.h"

#include "framework/format.h"
#include "memo/moving_memos.h"
#include "page/progress_dlg.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "settings/memo_list.h"
#include "store/busy_time.h"

namespace tavo {

namespace {

constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr int kBoxes[] = {kSettingsAlarms, kSettingsHolidays, kSettingsAnniversaries, kSettingsAppointments,
                          kSettingsMemos};

constexpr std::u16string_view kNotDeleted = u"The items could not be deleted.";

} // namespace

CSettingsPage::CSettingsPage(CMessagePump& pump, CProgramState& state, IMainView& view)
    : CMainPage(pump, state, view, kSettingsPageTemplate, kMenuPage) {}

const MessageMap& CSettingsPage::Messages() {
    static constexpr MessageEntry entries[] = {
        OnCommand<&CSettingsPage::DeleteChecked>(kSettingsDelete),
    };
    static const MessageMap map{entries, &CMainPage::Messages()};
    return map;
}

// The template's places are too narrow for the label and for large numbers.
void CSettingsPage::OnInitDialog() {
    for (const DialogItem& item : Form().Items) {
        if (item.Kind != ControlKind::PushButton) {
            Rect place = ToPixels(item.Bounds);
            place.Right = kPageSurface.Width;
            MoveItem(item.Id, place);
        }
    }
}

void CSettingsPage::Open() {
    Recount();
    Show(ShowCommand::Maximize);
}

void CSettingsPage::TakeChange() {
    if (Host().Windows().IsWindowVisible(Handle())) {
        Recount();
    }
}

// Kept on purpose: tags of items that are gone make the number of appointments smaller, below zero too.
void CSettingsPage::Recount() {
    const auto alarms = static_cast<int>(State.Categories.AlarmList.Size());
    const auto holidays = static_cast<int>(State.Categories.HolidayList.Size());
    const auto anniversaries = static_cast<int>(State.Categories.AnniversaryList.Size());
    const int appointments = State.Store.CountAppointments() - alarms - holidays - anniversaries;
    SetItemText(kSettingsAlarms, FormatText(u"All alarms ( %d item(s) )", alarms));
    SetItemText(kSettingsHolidays, FormatText(u"All holidays ( %d item(s) )", holidays));
    SetItemText(kSettingsAnniversaries, FormatText(u"All anniversaries ( %d item(s) )", anniversaries));
    SetItemText(kSettingsAppointments, FormatText(u"All appointments ( %d item(s) )", appointments));
    SetItemText(kSettingsMemos, FormatText(u"All memos ( %d item(s) )", FindAllMemos(State).size()));
}

DeletionClasses CSettingsPage::ReadClasses() const {
    return {IsChecked(kSettingsAlarms), IsChecked(kSettingsHolidays), IsChecked(kSettingsAnniversaries),
            IsChecked(kSettingsAppointments), IsChecked(kSettingsMemos)};
}

CSettingsPage::DeletionOutcome CSettingsPage::Delete(const DeletionClasses& classes) {
    const BusyTime busy(State);
    MassDeletion deletion(State, classes);
    RunLongWork(Pump(), State, deletion, kDeleteCaption);
    return {deletion.IsRefused(), deletion.Missing() > 0};
}

void CSettingsPage::DeleteChecked() {
    if (!ConfirmDeletion()) {
        return;
    }
    const auto [isRefused, isIncomplete] = Delete(ReadClasses());
    static_cast<void>(State.Categories.ApplyTagRequests()); // the pages are told anyway
    View.PostChangeNotice();
    for (const int box : kBoxes) {
        Host().Controls().SetCheck(Item(box), false);
    }
    Recount();
    if (isRefused) {
        Refuse(kNotDeleted);
    }
    if (isIncomplete) {
        Refuse(kMemosMissing);
    }
}

void CSettingsPage::Paint() {
    DropPainted();
    Surface().FillRect(Rect::Whole(kPageSurface), kBackground);
    DrawPageBar();
    DeclarePageBar();
    PresentSurface();
}

} // namespace tavo
