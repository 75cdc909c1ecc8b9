// Two columns below a heading.
#include "app/keys_dialog.h"

#include "framework/format.h"
#include "res/resource_ids.h"

#include <string_view>

namespace tavo {

namespace {

struct KeyUse {
    std::u16string_view Key;
    std::u16string_view Does;
};

constexpr KeyUse kKeys[] = {
    {u"Ctrl+Page keys", u"other page"},
    {u"Ctrl+1, 2, 3, 4", u"new alarm, holiday, ..."},
    {u"Ctrl+Z", u"take the last step back"},
    {u"Ctrl+F", u"find"},
    {u"Ctrl+G", u"go to a date"},
    {u"Ctrl+P", u"print the month"},
    {u"Left, Right", u"other month; other kind"},
    {u"Up, Down", u"other year; other row"},
    {u"Ctrl+arrows", u"other day of the month"},
    {u"Enter", u"menu of day; view row"},
    {u"F2, Delete", u"change row, delete it"},
    {u"Menu", u"menu of the row"},
    {u"F10", u"menu bar"},
    {u"Escape", u"leave without keeping"},
    {u"Ctrl+Q", u"end"},
};

constexpr Rect kTitleBand{5, 0, 240, 25};
constexpr int kFirstRow = 31;
constexpr int kRowHeight = 15;
constexpr int kKeyLeft = 6;
constexpr int kDoesLeft = 100;
constexpr int kRight = 238;
constexpr Color kTitleColor{0xFF0000}; // blue
constexpr Color kBlack = Color::FromRgb(0, 0, 0);
constexpr Pen kTitleLine{kBlack, 1};
constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr std::uint32_t kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;

} // namespace

void CKeysDlg::OnInitDialog() {
    Host().Windows().SetWindowTextW(Handle(), kKeysTemplate.Title);
}

void CKeysDlg::Paint() {
    DropPainted();
    Surface().FillRect(Rect::Whole(Surface().GetSize()), kBackground);
    Surface().DrawTextW(kKeysTemplate.Title, kTitleBand, {State.Fonts.FontArial10Bold, kTitleColor, kFormat});
    Surface().DrawLine({0, kTitleBand.Bottom}, {kTitleBand.Right, kTitleBand.Bottom}, kTitleLine);
    Declare({kTitleBand, PaintedRole::Header, std::u16string(kKeysTemplate.Title)});
    Rect row{0, kFirstRow, kRight, kFirstRow + kRowHeight};
    for (const KeyUse& use : kKeys) {
        Surface().DrawTextW(use.Key, {kKeyLeft, row.Top, kDoesLeft, row.Bottom},
                            {State.Fonts.FontArial9Bold, kBlack, kFormat});
        Surface().DrawTextW(use.Does, {kDoesLeft, row.Top, kRight, row.Bottom},
                            {State.Fonts.FontArial10, kBlack, kFormat});
        Declare({row, PaintedRole::Text, FormatText(u"%s: %s", use.Key, use.Does)});
        row.Top += kRowHeight;
        row.Bottom += kRowHeight;
    }
    PresentSurface();
}

} // namespace tavo
