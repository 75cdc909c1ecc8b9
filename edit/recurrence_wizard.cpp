// Stepping through the pages.
#include "edit/recurrence_wizard.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace tavo {

namespace {

constexpr Rect kCancelPlace = Rect::FromSize(10, 150, 70, 24);
constexpr Rect kBackPlace = Rect::FromSize(85, 150, 70, 24);
constexpr Rect kNextPlace = Rect::FromSize(160, 150, 70, 24);
constexpr std::u16string_view kBackText = u"Back";
constexpr std::u16string_view kNextText = u"Next";
constexpr std::u16string_view kDoneText = u"Done";
constexpr std::u16string_view kCancelText = u"Cancel";
constexpr int kButtons[] = {IDCANCEL, kWizardBack, kWizardNext};

} // namespace

CRecurrenceWizard::CRecurrenceWizard(CMessagePump& pump)
    : CDialog(pump, kRecurrenceTemplate, NavigationButtons::None) {}

const MessageMap& CRecurrenceWizard::Messages() {
    static constexpr MessageEntry entries[] = {
        OnCommand<&CRecurrenceWizard::GoBack>(kWizardBack),
        OnCommand<&CRecurrenceWizard::GoNext>(kWizardNext),
        On<&CRecurrenceWizard::TakeKey>(WM_KEYDOWN),
    };
    static const MessageMap map{entries, &CDialog::Messages()};
    return map;
}

void CRecurrenceWizard::AddPage(std::u16string_view name, CWizardPage& page, int templateId) {
    PageNames.emplace_back(name);
    Pages.push_back(&page);
    PageTemplates.push_back(templateId);
}

void CRecurrenceWizard::OnInitDialog() {
    Show(ShowCommand::Maximize);
    PlaceButtons();
    CreatePages();
    if (!Pages.empty()) {
        EnableItem(kWizardBack, false);
        SetActivePage(0);
    }
    Host().Windows().SetWindowTextW(Handle(), Title);
    SetItemText(kWizardBack, kBackText);
    SetItemText(kWizardNext, Pages.size() < 2 ? kDoneText : kNextText);
    SetItemText(IDCANCEL, kCancelText);
    MakeRoomForPanel();
    Host().InputPanel().SHSipPreference(Handle(), true);
}

void CRecurrenceWizard::PlaceButtons() {
    MoveItem(IDCANCEL, kCancelPlace);
    MoveItem(kWizardBack, kBackPlace);
    MoveItem(kWizardNext, kNextPlace);
}

void CRecurrenceWizard::CreatePages() {
    for (std::size_t index = 0; index < Pages.size(); ++index) {
        // A page that the device cannot make shows nothing; the wizard can still be left.
        static_cast<void>(Pages[index]->CreateIn(Handle(), PageTemplates[index]));
    }
}

void CRecurrenceWizard::MakeRoomForPanel() {
    IInputPanel& panel = Host().InputPanel();
    SipInfo info = panel.SipGetInfo(); // the panel keeps its height
    info.VisibleDesktop.Bottom = kClientArea.Top + Host().Windows().GetClientRect(Handle()).Bottom;
    panel.SipSetInfo(info);
}

void CRecurrenceWizard::SetActivePage(int page) {
    if (Current >= 0) {
        if (!PageAt(Current).UpdateData()) {
            return;
        }
        PageAt(Current).Show(ShowCommand::Hide);
    }
    Current = page;
    PageAt(Current).Show(ShowCommand::Show);
}

void CRecurrenceWizard::GoNext() {
    if (Current >= LastPage()) {
        Finish();
        return;
    }
    const int before = Current;
    SetActivePage(Current + 1);
    if (Current == before) {
        return;
    }
    if (Current == LastPage()) {
        SetItemText(kWizardNext, kDoneText);
    }
    EnableItem(kWizardBack, true);
}

void CRecurrenceWizard::GoBack() {
    if (Current < 1) {
        return;
    }
    const int before = Current;
    SetActivePage(Current - 1);
    if (Current == before) {
        return;
    }
    SetItemText(kWizardNext, kNextText);
    EnableItem(kWizardBack, Current != 0);
}

void CRecurrenceWizard::OnOK() {
    Finish();
}

void CRecurrenceWizard::Finish() {
    for (CWizardPage* page : Pages) {
        if (!page->WriteToPattern(Validation::On)) {
            return;
        }
    }
    Leave(IDOK);
}

void CRecurrenceWizard::OnCancel() {
    Leave(IDCANCEL);
}

void CRecurrenceWizard::Leave(int result) {
    DestroyPages();
    Host().InputPanel().SHSipPreference(Handle(), false);
    EndDialog(result);
}

void CRecurrenceWizard::DestroyPages() {
    // Kept on purpose: the page on show is asked each time; the others go with the frame.
    for (std::size_t count = 0; count < Pages.size(); ++count) {
        PageAt(Current).DestroyPage();
    }
}

bool CRecurrenceWizard::TakeKey(const Message& key) {
    if (key.Id != VK_RETURN) {
        return false;
    }
    // On Back and Next it presses that button.
    const WindowHandle focus = Host().Windows().GetFocus();
    const auto button =
        std::find_if(std::begin(kButtons), std::end(kButtons), [&](int id) { return Item(id) == focus; });
    if (button == std::end(kButtons) || *button == IDCANCEL) {
        return false;
    }
    if (*button == kWizardBack) {
        GoBack();
    } else {
        GoNext();
    }
    return true;
}

std::vector<WindowHandle> CRecurrenceWizard::FocusStops() const {
    std::vector<WindowHandle> stops;
    if (Current >= 0) {
        stops = PageAt(Current).FocusStops();
    }
    for (const int button : kButtons) {
        if (Host().Windows().IsWindowEnabled(Item(button))) {
            stops.push_back(Item(button));
        }
    }
    return stops;
}

void CRecurrenceWizard::WalkFocus(int step) {
    CDialog::WalkFocus(step);
    if (Current >= 0) {
        PageAt(Current).ShowFocus();
    }
}

} // namespace tavo
