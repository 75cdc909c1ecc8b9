// The main view's life and the switching of its pages.
#include "app/vantor_view.h"

#include "alarm/reminder_sound.h"
#include "app/draft_recovery.h"
#include "app/ink_recovery.h"
#include "app/unsaved_tags_offer.h"
#include "memo/moving_memos.h"
#include "platform/activation.h"
#include "platform/device_paths.h"
#include "res/menus.h"
#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/midnight.h"
#include "store/refusal.h"

namespace tavo {

namespace {

constexpr int kReminderPeriod = 60000; // milliseconds between two looks for the next reminder
constexpr int kNoticePeriod = 500;     // milliseconds in which change notices become one
constexpr Size kViewSize{kClientArea.Width(), kClientArea.Height()};
constexpr Color kViewBackground = Color::FromRgb(255, 255, 255);

} // namespace

CVantorView::CVantorView(CMessagePump& pump, CProgramState& state, ICommandTarget& commands)
    : CPaintedWindow(pump, kViewSize), State(state), Commands(commands), InkNotes(pump, state), Tags(state) {
    State.CurrentPage = PageNumber::Clock;
    State.RefreshSuppressed = false;
}

CVantorView::~CVantorView() {
    State.Store.CloseStore();
}

const MessageMap& CVantorView::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CVantorView::TakeChangeNotice>(kChangeNotice),
        OnTimer<&CVantorView::RefreshPages>(kTimerChangeNotice),
        OnTimer<&CVantorView::NameReminderSound>(kTimerReminderSound),
        OnTimer<&CVantorView::WorkOn>(kTimerWork),
        On<&CVantorView::EndProcess>(WM_CLOSE),
    };
    static const MessageMap map{entries, &CPaintedWindow::Messages()};
    return map;
}

bool CVantorView::OpenIn(WindowHandle frame) {
    Frame = frame;
    WindowDescription description;
    description.Kind = WindowKind::View;
    description.Parent = frame;
    description.Bounds = kClientArea;
    description.Visible = true;
    const bool made = Create(description);
    State.MainView = Handle();
    return made;
}

void CVantorView::UpdateFirst() {
    if (!State.Store.OpenStore()) {
        return;
    }
    // A missing companion is silent: the calendar works without it.
    static_cast<void>(Host().Processes().CreateProcessW(kCompanionProgram, u""));
    // A corrupt file has shown its message; the start goes on with what was read.
    static_cast<void>(LoadCategoryFile(State));
    const int missing = BringBackMovedMemos(State); // before the month looks for memos
    State.ShowsFirstHint = IsFirstStart();
    CreatePages();
    Host().Windows().SetTimer(Handle(), kTimerReminderSound, kReminderPeriod);
    State.Busy = false;
    State.RefreshSuppressed = false;
    if (missing > 0) {
        ShowRefusal(Pump(), Handle(), kMemosMissing);
    }
    OfferWhatWasLeft();
    if (!Pump().HasQuit()) { // else the next start asks about what is left
        Tags.Begin();
    }
}

// Until the hint was seen once, and as long as there is nothing.
bool CVantorView::IsFirstStart() {
    return Host().Registry().GetProfileIntW(kHelpSection, kHintSeen, 0) == 0 && State.Store.CountAppointments() == 0;
}

// A program that quits meanwhile asks no more; the next start does.
void CVantorView::OfferWhatWasLeft() {
    if (Pump().HasQuit()) {
        return;
    }
    const bool isTagged = OfferUnsavedTags(State);
    const bool isInkKept = !Pump().HasQuit() && OfferRecoveredInk(State);
    if (isTagged || isInkKept) {
        PostChangeNotice();
    }
    if (!Pump().HasQuit()) {
        OfferDrafts(State, *SchedulePage);
    }
}

// A page that the device cannot make stays away; the others are of use without it.
template <class Page> std::unique_ptr<Page> CVantorView::MakePage() {
    auto page = std::make_unique<Page>(Pump(), State, *this);
    static_cast<void>(page->CreateOn(Handle()));
    return page;
}

void CVantorView::CreatePages() {
    SettingsPage = MakePage<CSettingsPage>();
    SchedulePage = MakePage<CSchedulePage>();
    CalendarPage = MakePage<CCalendarPage>();
    ClockPage = MakePage<CClockPage>();
    SchedulePage->InkEditor = &InkNotes;
    CalendarPage->InkEditor = &InkNotes;
    ClockPage->Show(ShowCommand::Maximize);
}

void CVantorView::HidePages() {
    ClockPage->Show(ShowCommand::Hide);
    SchedulePage->Show(ShowCommand::Hide);
    CalendarPage->Show(ShowCommand::Hide);
    SettingsPage->Show(ShowCommand::Hide);
}

void CVantorView::ShowPage(PageNumber page) {
    HidePages();
    switch (page) {
    case PageNumber::Clock:
        ClockPage->Show(ShowCommand::Maximize);
        break;
    case PageNumber::Schedule:
    case PageNumber::ScheduleAgain:
        SchedulePage->Open();
        break;
    case PageNumber::Calendar:
        CalendarPage->OpenFromPageBar();
        CalendarPage->Show(ShowCommand::Maximize);
        break;
    case PageNumber::Settings:
        SettingsPage->Open();
        break;
    default:
        break; // no page: all stay hidden
    }
}

void CVantorView::ClosePages() {
    SaveAndHide(SaveTrouble::Tell);
}

void CVantorView::SaveAndHide(SaveTrouble trouble) {
    if (!ClockPage) {
        return;
    }
    // Where the file cannot be written the program goes to the background all the same.
    if (SaveOrKeepTags(State, trouble)) {
        Tags.Begin();
    }
    Host().Windows().ShowWindow(Frame, ShowCommand::Minimize);
}

void CVantorView::MakeItem(ItemKind kind) {
    if (!SchedulePage) {
        return;
    }
    const std::optional<SYSTEMTIME> day = SelectedDay();
    if (day) {
        SchedulePage->MakeItemOn(kind, *day);
    } else {
        SchedulePage->MakeItem(kind);
    }
}

std::optional<SYSTEMTIME> CVantorView::SelectedDay() {
    if (State.CurrentPage != PageNumber::Calendar || !CalendarPage) {
        return std::nullopt;
    }
    const CalendarDate selected = CalendarPage->SelectedDate();
    return CalendarPage->IsDay(selected) ? std::optional(MidnightOf(selected.Year, selected.Month, selected.Day))
                                         : std::nullopt;
}

void CVantorView::OpenItem(Oid oid) {
    if (!SchedulePage || State.Busy) {
        return;
    }
    switch (static_cast<NewItemWish>(oid)) {
    case NewItemWish::Alarm:
        return SchedulePage->MakeItem(ItemKind::Alarm);
    case NewItemWish::Holiday:
        return SchedulePage->MakeItem(ItemKind::Holiday);
    case NewItemWish::Anniversary:
        return SchedulePage->MakeItem(ItemKind::Anniversary);
    case NewItemWish::Appointment:
        return SchedulePage->MakeItem(ItemKind::Appointment);
    default:
        SchedulePage->OpenItem(oid);
    }
}

void CVantorView::ShowDay(const SYSTEMTIME& day) {
    if (!CalendarPage) {
        return;
    }
    CalendarPage->GoTo({day.Year, day.Month, day.Day});
    if (State.CurrentPage != PageNumber::Calendar) {
        State.CurrentPage = PageNumber::Calendar;
        ShowPage(PageNumber::Calendar);
    }
}

SYSTEMTIME CVantorView::ShownDay() {
    return SelectedDay().value_or(Host().Clock().GetLocalTime());
}

void CVantorView::PostChangeNotice() {
    Post(kChangeNotice);
}

void CVantorView::TakeOutsideChange() {
    // Whether a list changed or an item did, the pages are asked to show it.
    // A mass deletion holds the lists as they are; it asks for the requests at its end.
    if (!State.Busy) {
        static_cast<void>(State.Categories.ApplyTagRequests());
    }
    PostChangeNotice();
}

void CVantorView::TakeChangeNotice() {
    Host().Windows().KillTimer(Handle(), kTimerChangeNotice);
    if (!State.Busy) { // else what changed is not final
        Tags.TakeChange();
    }
    if (!State.RefreshSuppressed) {
        Host().Windows().SetTimer(Handle(), kTimerChangeNotice, kNoticePeriod);
    }
}

void CVantorView::RefreshPages() {
    Host().Windows().KillTimer(Handle(), kTimerChangeNotice);
    if (State.Busy) {
        return; // what it sees is not final; its end gives notice again
    }
    State.ShowsFirstHint = State.ShowsFirstHint && State.Store.CountAppointments() == 0;
    if (CalendarPage) {
        CalendarPage->RebuildAll();
    }
    if (SchedulePage) {
        SchedulePage->RefillLists();
    }
    if (SettingsPage) {
        SettingsPage->TakeChange();
    }
    // The pages first: people look at them.
    NameReminderSound();
}

void CVantorView::NameReminderSound() {
    if (!State.Busy) { // what it would see is not final; the end of the work asks again
        UpdateReminderSound(State);
    }
}

void CVantorView::WorkOn() {
    if (State.Work != nullptr) {
        State.Work->DoSlice();
    }
}

WindowHandle CVantorView::CreatePageMenuBar(WindowHandle page, int menuId) {
    return Host().Menus().SHCreateMenuBar(page, LoadMenuW(menuId));
}

void CVantorView::RouteCommand(int command) {
    Commands.TakeCommand(command);
}

void CVantorView::EndProcess() {
    Host().Queue().PostQuitMessage(0);
}

void CVantorView::Paint() {
    DropPainted();
    Surface().FillRect(Rect::Whole(kViewSize), kViewBackground);
    PresentSurface();
}

} // namespace tavo
