// The text above, the list below, and between two messages a part of the search.
#include "app/find_dialog.h"

#include "framework/format.h"
#include "framework/scrolling.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "store/midnight.h"

namespace tavo {

namespace {

constexpr Rect kListPlace{0, 34, 240, 34 + CFoundList::kExtent.Height};
constexpr Rect kScrollPlace{225, 35, 240, kListPlace.Bottom};
constexpr Rect kTextPlace{5, 6, 235, 28};
constexpr Rect kTellArea{5, kListPlace.Bottom + 4, 235, kListPlace.Bottom + 22};
constexpr Color kBlack = Color::FromRgb(0, 0, 0);
constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr std::u16string_view kAsk = u"Words of a subject, place or note";
constexpr std::u16string_view kSearching = u"Searching...";
constexpr std::u16string_view kNothing = u"Nothing was found";
constexpr std::u16string_view kOne = u"1 found";
constexpr std::u16string_view kMany = u"%d found";
constexpr std::u16string_view kTooMany = u"More than %d found: type more";
constexpr std::u16string_view kFailed = u"The calendar could not be read";

// A part takes a few milliseconds: typing never waits for it, and the first that is found is shown at once.
constexpr std::int32_t kItemsAtOnce = 2000;

} // namespace

CFindDlg::CFindDlg(CMessagePump& pump, CProgramState& state)
    : CDialog(pump, kFindTemplate), State(state), List(pump, state, *this) {}

const MessageMap& CFindDlg::Messages() {
    static constexpr MessageEntry entries[] = {
        OnControl<&CFindDlg::Begin>(kFindText, EN_CHANGE),
        On<&CFindDlg::SearchOn>(kSearchOn),
        On<&CFindDlg::TakeKey>(WM_KEYDOWN),
        OnScroll<&CFindDlg::TakeScroll>(kFindScrollBar),
    };
    static const MessageMap map{entries, &CDialog::Messages()};
    return map;
}

void CFindDlg::OnInitDialog() {
    Host().Windows().SetWindowTextW(Handle(), kFindTemplate.Title);
    const SYSTEMTIME now = Host().Clock().GetLocalTime();
    static_cast<void>(Host().Locale().SystemTimeToVariantTime(MidnightOf(now.Year, now.Month, now.Day), Today));
    static_cast<void>(List.CreateOn(Handle(), kListPlace)); // without its window the search still counts
    List.Show(ShowCommand::Show);
    MoveItem(kFindText, kTextPlace);
    MoveItem(kFindScrollBar, kScrollPlace);
    Show(ShowCommand::Show); // only what is seen takes the focus
    Host().Windows().SetFocus(Item(kFindText));
}

void CFindDlg::Begin() {
    List.Clear();
    Search.Reset();
    HasFailed = !State.Store.OutlookApp || Failed(State.Store.OutlookApp->Search(ItemText(kFindText), Search));
    if (Search && !IsAwaited) {
        IsAwaited = true;
        Post(kSearchOn);
    }
    Tell();
}

void CFindDlg::SearchOn() {
    IsAwaited = false;
    if (!Search) {
        return;
    }
    Found.clear();
    const Status status = Search->Step(kItemsAtOnce, Found);
    for (const FoundItem& item : Found) {
        List.Add(item, Today);
    }
    HasFailed = Failed(status);
    if (status != Status::Ok || List.Count() >= CFoundList::kMostRows) {
        Search.Reset();
    } else {
        IsAwaited = true;
        Post(kSearchOn);
    }
    Tell();
}

void CFindDlg::Tell() {
    Host().Controls().SetScrollInfo(Item(kFindScrollBar), {0, List.MaximumTop(), List.Top()});
    ShowItem(kFindScrollBar, List.MaximumTop() > 0);
    Invalidate();
}

void CFindDlg::OnOK() {
    if (const AppointmentData* selected = List.GetSelected(); selected != nullptr) {
        Day = selected->Start;
        EndDialog(IDOK);
    }
}

bool CFindDlg::TakeKey(const Message& key) {
    if (!List.MoveSelection(key.Id)) {
        return false;
    }
    OnListScrolled();
    return true;
}

void CFindDlg::TakeScroll(const Message& scroll) {
    List.SetTop(ScrolledTop(scroll, List.Top()).value_or(List.Top()));
    OnListScrolled();
}

void CFindDlg::OnRowTapped() {
    OnOK();
}

void CFindDlg::OnListScrolled() {
    Host().Controls().SetScrollInfo(Item(kFindScrollBar), {0, List.MaximumTop(), List.Top()});
}

void CFindDlg::Paint() {
    std::u16string told(kAsk);
    if (HasFailed) {
        told = kFailed;
    } else if (List.Count() >= CFoundList::kMostRows) {
        told = FormatText(kTooMany, List.Count());
    } else if (Search) {
        told = kSearching;
    } else if (List.Count() > 0) {
        told = List.Count() == 1 ? std::u16string(kOne) : FormatText(kMany, List.Count());
    } else if (!ItemText(kFindText).empty()) {
        told = kNothing;
    }
    DropPainted();
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kBackground);
    Surface().DrawTextW(told, kTellArea, {State.Fonts.FontArial10, kBlack, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX});
    Declare({kTellArea, PaintedRole::Text, told});
    PresentSurface();
}

} // namespace tavo
