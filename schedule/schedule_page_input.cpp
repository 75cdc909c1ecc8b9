// What stylus, keys and scroll bar do on the Schedule page.
#include "schedule/schedule_page.h"

#include "framework/scrolling.h"
#include "platform/typing.h"
#include "res/resource_ids.h"
#include "schedule/schedule_page_look.h"

#include <algorithm>

namespace tavo {

namespace {

constexpr int kModifyKey = VK_F1 + 1;

} // namespace

void CSchedulePage::TakeStylusDown(Point point) {
    if (TakePageBarPress(point)) {
        return;
    }
    if (NewButton.TakeDown(point)) {
        Invalidate(NewButton.Place());
    } else if (Hits(kPreviousArrow, point)) {
        ShowNextKind(-1);
    } else if (Hits(kNextArrow, point)) {
        ShowNextKind(1);
    }
}

void CSchedulePage::TakeStylusMove(Point point) {
    const bool wasPressed = NewPressed;
    if (NewButton.TakeMove(point) && NewPressed != wasPressed) {
        Invalidate(NewButton.Place());
    }
}

void CSchedulePage::TakeStylusUp(Point point) {
    TakeStylusMove(point);
    if (NewButton.TakeUp(point)) {
        Invalidate(NewButton.Place());
        MakeItem(Kind);
    }
}

// The focus may be in a picker of the period, which has told by now what was typed there.
void CSchedulePage::TakeKeyDown(const Message& key) {
    if (TakePageKey(key)) {
        return;
    }
    if (CurrentList().MoveSelection(key.Id)) {
        FocusList();
    } else if (key.Id == VK_LEFT) {
        ShowNextKind(-1);
    } else if (key.Id == VK_RIGHT) {
        ShowNextKind(1);
    } else if (key.Id == VK_RETURN && IsPickerFocused()) {
        FocusList(); // the period stands, and the next Enter is for a row
    } else if (CurrentList().GetSelected() != nullptr) {
        TakeRowKey(key);
    }
}

// Other keys mean nothing here.
void CSchedulePage::TakeRowKey(const Message& key) {
    if (key.Id == VK_RETURN && key.Code == 0) {
        ViewSelected();
    } else if (key.Id == VK_DELETE && key.Code == 0) {
        DeleteSelected();
    } else if (key.Id == kModifyKey && key.Code == 0) {
        ModifySelected();
    } else if (key.Id == VK_APPS) {
        FocusList();
        CurrentList().OpenSelectedMenu();
    }
}

void CSchedulePage::FocusList() {
    Host().Windows().SetFocus(CurrentList().Handle());
}

bool CSchedulePage::IsPickerFocused() const {
    const WindowHandle focus = Host().Windows().GetFocus();
    return focus == Item(kSchedulePeriodStart) || focus == Item(kSchedulePeriodEnd);
}

void CSchedulePage::TakeListKey(const Message& key) {
    TakeKeyDown(key);
}

void CSchedulePage::TakeScroll(const Message& scroll) {
    if (const std::optional<int> top = ScrolledTop(scroll, CurrentList().Top())) {
        ScrollTo(*top);
    }
}

void CSchedulePage::ScrollTo(int top) {
    const int maximum = Host().Controls().GetScrollInfo(Item(kScheduleScrollBar)).Maximum;
    CurrentList().SetTop(std::clamp(top, 0, maximum));
    SetScrollBar();
}

void CSchedulePage::ScrollListBy(int rows) {
    ScrollTo(CurrentList().Top() + rows);
}

void CSchedulePage::OnListScrolled() {
    SetScrollBar();
}

void CSchedulePage::TakeListCommand(int command) {
    Message message;
    message.Window = Handle();
    message.Number = WM_COMMAND;
    message.Id = command;
    message.Code = BN_CLICKED;
    message.Value = kFromMenuOrKey;
    HandleMessage(message);
}

} // namespace tavo
