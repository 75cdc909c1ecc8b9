// The About dialog's title band and icon; its texts are the template's.
#include "app/about_dialog.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

constexpr Rect kTitleBand{5, 0, 240, 25};
constexpr Color kTitleColor{0xFF0000}; // blue
constexpr Pen kTitleLine{Color{0x000000}, 1};
constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr Size kIconSize{32, 32};

} // namespace

CAboutDlg::CAboutDlg(CMessagePump& pump, CProgramState& state) : CDialog(pump, kAboutTemplate), State(state) {}

void CAboutDlg::Paint() {
    DropPainted();
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kBackground);
    Surface().DrawTextW(kAboutTemplate.Title, kTitleBand,
                        {State.Fonts.FontArial10Bold, kTitleColor, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX});
    Surface().DrawLine({0, 25}, {240, 25}, kTitleLine);
    const Rect icon = ToPixels(kAboutIconPlace);
    Surface().DrawBitmap(kBitmapProgram, {icon.Left, icon.Top}, Rect::Whole(kIconSize));
    Declare({kTitleBand, PaintedRole::Header, std::u16string(kAboutTemplate.Title)});
    PresentSurface();
}

} // namespace tavo
