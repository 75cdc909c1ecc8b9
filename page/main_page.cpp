// The page bar and the way from one page to another.
#include "page/main_page.h"

#include "res/resource_ids.h"
#include "res/strings.h"
#include "store/refusal.h"
#include "store/undo.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace tavo {

namespace {

constexpr int kPageBarTop = 241;
constexpr int kPageBarBottom = 267;
constexpr Size kPageBarSize{240, 26};
constexpr Size kTabSize{60, 26};

// The highlighted tab of each page number; a fifth stands ready though no page has its number.
constexpr std::array<int, 5> kTabBitmaps{kBitmapTabClock, kBitmapTabSchedule, kBitmapTabCalendar, kBitmapTabSettings,
                                         kBitmapTabFifth};
constexpr std::array<std::u16string_view, kPageCount> kTabNames{u"Clock", u"Schedule", u"Calendar", u"Settings"};

} // namespace

CMainPage::CMainPage(CMessagePump& pump, CProgramState& state, IMainView& view, const DialogTemplate& form, int menuId)
    : CPage(pump, form), State(state), View(view), MenuId(menuId) {}

const MessageMap& CMainPage::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&CMainPage::ClosePage>(WM_CLOSE),
        On<&CMainPage::TakePageBarPress>(WM_LBUTTONDOWN),
        On<&CMainPage::TakePageKey>(WM_KEYDOWN),
        On<&CMainPage::PrepareMenus>(WM_INITMENUPOPUP),
    };
    static const MessageMap map{entries, &CPage::Messages()};
    return map;
}

bool CMainPage::CreateOn(WindowHandle view) {
    if (!CreatePage(view)) {
        return false;
    }
    OnInitDialog();
    MenuBar = View.CreatePageMenuBar(Handle(), MenuId); // a page without one is still of use
    return true;
}

void CMainPage::DrawPageBar() {
    Surface().DrawBitmap(kBitmapTabBar, {0, kPageBarTop}, Rect::Whole(kPageBarSize));
    const int page = static_cast<int>(State.CurrentPage);
    if (page >= 0 && page < static_cast<int>(kTabBitmaps.size())) {
        Surface().DrawBitmap(kTabBitmaps[static_cast<std::size_t>(page)], {page * kTabSize.Width, kPageBarTop},
                             Rect::Whole(kTabSize));
    }
}

void CMainPage::DeclarePageBar() {
    for (int tab = 0; tab < kPageCount; ++tab) {
        PaintedItem item;
        item.Bounds = Rect::FromSize(tab * kTabSize.Width, kPageBarTop, kTabSize.Width, kTabSize.Height);
        item.Role = PaintedRole::Tab;
        item.Name = kTabNames[static_cast<std::size_t>(tab)];
        item.Id = tab;
        item.Selected = tab == static_cast<int>(State.CurrentPage);
        Declare(std::move(item));
    }
}

bool CMainPage::TakePageBarPress(Point point) {
    if (point.Y <= kPageBarTop || point.Y >= kPageBarBottom) {
        return false;
    }
    GoToPage(static_cast<PageNumber>(point.X / kTabSize.Width));
    return true;
}

bool CMainPage::TakePageKey(const Message& key) {
    if ((key.Code & kModifierControl) == 0 || (key.Id != VK_PRIOR && key.Id != VK_NEXT && key.Id != VK_TAB)) {
        return false;
    }
    const bool backwards = key.Id == VK_PRIOR || (key.Id == VK_TAB && (key.Code & kModifierShift) != 0);
    const int step = backwards ? kPageCount - 1 : 1;
    GoToPage(static_cast<PageNumber>((static_cast<int>(State.CurrentPage) + step) % kPageCount));
    return true;
}

void CMainPage::GoToPage(PageNumber page) {
    if (page == State.CurrentPage) {
        return;
    }
    State.CurrentPage = page;
    View.ShowPage(page);
}

void CMainPage::PrepareMenus() {
    Host().Menus().SetMenuItemText(MenuBar, kCommandUndoStep, DescribeUndo(State));
    Host().Menus().SetMenuItem(MenuBar, kCommandUndoStep, CanUndo(State), false);
    const bool canChoose = State.CanChooseFiles && !State.Busy;
    Host().Menus().SetMenuItem(MenuBar, kCommandImport, canChoose, false);
    Host().Menus().SetMenuItem(MenuBar, kCommandExport, canChoose, false);
    Host().Menus().SetMenuItem(MenuBar, kCommandBackup, canChoose, false);
    Host().Menus().SetMenuItem(MenuBar, kCommandPrintMonth, canChoose, false);
}

bool CMainPage::ConfirmDeletion() {
    MessageBoxDescription question;
    question.Text = kDeleteQuestion;
    question.Caption = kDeleteCaption;
    question.Buttons = MessageBoxButtons::YesNo;
    return Pump().ShowMessageBox(Handle(), question) == IDYES;
}

void CMainPage::Refuse(std::u16string_view text) {
    ShowRefusal(Pump(), Handle(), text);
}

void CMainPage::ClosePage() {
    View.ClosePages();
}

void CMainPage::HandleByDefault(const Message& message) {
    if (message.Number == WM_COMMAND && message.Code == BN_CLICKED) {
        View.RouteCommand(message.Id);
    } else {
        CPage::HandleByDefault(message);
    }
}

} // namespace tavo
