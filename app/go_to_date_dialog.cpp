// A heading and a date picker.
#include "app/go_to_date_dialog.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

constexpr Rect kTitleBand{5, 0, 240, 25};
constexpr Rect kHintArea{20, 34, 220, 52};
constexpr Color kTitleColor{0xFF0000}; // blue
constexpr Color kBlack = Color::FromRgb(0, 0, 0);
constexpr Pen kTitleLine{kBlack, 1};
constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr std::u16string_view kHint = u"Show the day";

} // namespace

CGoToDateDlg::CGoToDateDlg(CMessagePump& pump, CProgramState& state, const SYSTEMTIME& day)
    : CDialog(pump, kGoToDateTemplate), State(state), Day(day) {}

void CGoToDateDlg::OnInitDialog() {
    Host().Windows().SetWindowTextW(Handle(), kGoToDateTemplate.Title);
    static_cast<void>(Host().Controls().SetSystemtime(Item(kGoToDateDay), Day)); // else it shows today
    Show(ShowCommand::Show);                                                     // only what is seen takes the focus
    Host().Windows().SetFocus(Item(kGoToDateDay));
}

void CGoToDateDlg::OnOK() {
    Day = Host().Controls().GetSystemtime(Item(kGoToDateDay));
    EndDialog(IDOK);
}

void CGoToDateDlg::Paint() {
    DropPainted();
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kBackground);
    Surface().DrawTextW(kGoToDateTemplate.Title, kTitleBand,
                        {State.Fonts.FontArial10Bold, kTitleColor, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX});
    Surface().DrawLine({0, kTitleBand.Bottom}, {kTitleBand.Right, kTitleBand.Bottom}, kTitleLine);
    Surface().DrawTextW(kHint, kHintArea, {State.Fonts.FontArial10, kBlack, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX});
    Declare({kTitleBand, PaintedRole::Header, std::u16string(kGoToDateTemplate.Title)});
    Declare({kHintArea, PaintedRole::Text, std::u16string(kHint)});
    PresentSurface();
}

} // namespace tavo
