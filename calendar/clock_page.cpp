// The clock page's behaviour and painting.
#include "calendar/clock_page.h"

#include "calendar/clock_hands.h"
#include "platform/device_paths.h"
#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "store/date_pictures.h"

namespace tavo {

namespace {

constexpr int kPromptPeriod = 100;  // milliseconds
constexpr int kRegularPeriod = 471; // milliseconds: the second hand never seems to stumble

constexpr Rect kHeaderText{20, 10, 190, 30};
constexpr Rect kHeaderPress{21, 6, 190, 35};
constexpr Rect kModeButton = Rect::FromSize(200, 5, 30, 30);
constexpr Rect kModeButtonPress{201, 6, 230, 35};
constexpr Point kDialPlace{20, 35};
constexpr Size kDialSize{200, 200};
constexpr Point kDigitalPlace{10, 45};
constexpr Size kDigitalSize{220, 220};
constexpr Rect kTimeText{20, 65, 220, 195};
constexpr Rect kSecondsText{20, 175, 220, 210};

constexpr Color kWhite = Color::FromRgb(255, 255, 255);
constexpr Color kHeaderColor = Color::FromRgb(0, 0, 0);
constexpr Color kDigitColor = Color::FromRgb(20, 51, 150);
constexpr Pen kOutlinePen{Color::FromRgb(38, 120, 225), 3};
constexpr Pen kInnerPen{Color::FromRgb(38, 100, 180), 3};
constexpr Pen kSecondHandPen{Color::FromRgb(38, 114, 205), 3};

constexpr std::uint32_t kDigitFormat = DT_CENTER | DT_BOTTOM | DT_SINGLELINE;

} // namespace

bool ReadIsAnalog(IRegistry& registry) {
    return registry.GetProfileIntW(u"clock", u"isAnalog", 1) != 0;
}

CClockPage::CClockPage(CMessagePump& pump, CProgramState& state, IMainView& view)
    : CMainPage(pump, state, view, kClockPageTemplate, kMenuPage) {}

const MessageMap& CClockPage::Messages() {
    static constexpr MessageEntry entries[] = {
        OnTimer<&CClockPage::UpdatePromptly>(kTimerClockPrompt),
        OnTimer<&CClockPage::UpdateRegularly>(kTimerClockRegular),
        On<&CClockPage::TakeStylusDown>(WM_LBUTTONDOWN),
        On<&CClockPage::TakeKeyUp>(WM_KEYUP),
    };
    static const MessageMap map{entries, &CMainPage::Messages()};
    return map;
}

void CClockPage::OnInitDialog() {
    IsAnalog = ReadIsAnalog(Host().Registry());
    Host().Windows().SetTimer(Handle(), kTimerClockPrompt, kPromptPeriod);
    Host().Windows().SetTimer(Handle(), kTimerClockRegular, kRegularPeriod);
}

void CClockPage::Paint() {
    const SYSTEMTIME now = Host().Clock().GetLocalTime();
    DropPainted();
    Surface().FillRect(Rect::Whole(kPageSurface), kWhite);
    DrawPageBar();
    const std::u16string date =
        Host().Locale().GetDateFormatW(LocaleId::User, now, kPictureHeaderDate, kHeaderDateBuffer).value_or(u"");
    PaintHeader(date);
    if (IsAnalog) {
        PaintAnalog(now);
    } else {
        PaintDigital(now);
    }
    DeclareFace(now);
    DeclarePageBar();
    PresentSurface();
}

void CClockPage::PaintHeader(const std::u16string& date) {
    Surface().DrawTextW(date, kHeaderText,
                        {State.Fonts.FontComic13Bold, kHeaderColor, DT_RIGHT | DT_VCENTER | DT_SINGLELINE});
    Declare({kHeaderText, PaintedRole::Header, date});
}

void CClockPage::PaintDigital(const SYSTEMTIME& now) {
    ILocale& locale = Host().Locale();
    Surface().DrawBitmap(kBitmapModeButton, {kModeButton.Left, kModeButton.Top},
                         Rect::FromSize(kModeButton.Width(), 0, kModeButton.Width(), kModeButton.Height()));
    Surface().DrawBitmap(kBitmapDigitalBackground, kDigitalPlace, Rect::Whole(kDigitalSize));
    const std::u16string time =
        locale.GetTimeFormatW(LocaleId::User, now, kPictureClockTime, kDateTimeBuffer).value_or(u"");
    Surface().DrawTextW(time, kTimeText, {State.Fonts.FontComicHuge, kDigitColor, kDigitFormat});
    const std::u16string seconds =
        locale.GetTimeFormatW(LocaleId::User, now, kPictureClockSeconds, kDateTimeBuffer).value_or(u"");
    Surface().DrawTextW(seconds, kSecondsText, {State.Fonts.FontComic20, kDigitColor, kDigitFormat});
}

void CClockPage::PaintAnalog(const SYSTEMTIME& now) {
    Surface().DrawBitmap(kBitmapDialFace, kDialPlace, Rect::Whole(kDialSize));
    PaintHourOrMinuteHand(PlaceHand(HourHandAngle(now), kHourHandLength));
    PaintHourOrMinuteHand(PlaceHand(MinuteHandAngle(now), kMinuteHandLength));
    const HandPoints second = PlaceHand(SecondHandAngle(now), kSecondHandLength);
    Surface().DrawLine(second.Base, second.Tip, kSecondHandPen);
    Surface().DrawBitmap(kBitmapModeButton, {kModeButton.Left, kModeButton.Top},
                         Rect::FromSize(0, 0, kModeButton.Width(), kModeButton.Height()));
}

void CClockPage::PaintHourOrMinuteHand(const HandPoints& hand) {
    Surface().DrawLine(hand.FirstSide, hand.Tip, kOutlinePen);
    Surface().DrawLine(hand.Base, hand.Tip, kInnerPen);
    Surface().DrawLine(hand.SecondSide, hand.Tip, kInnerPen);
}

void CClockPage::DeclareFace(const SYSTEMTIME& now) {
    const std::u16string time =
        Host().Locale().GetTimeFormatW(LocaleId::User, now, kPictureListTime, kDateTimeBuffer).value_or(u"");
    const Rect dial = Rect::FromSize(kDialPlace.X, kDialPlace.Y, kDialSize.Width, kDialSize.Height);
    const Rect digits = Rect::FromSize(kDigitalPlace.X, kDigitalPlace.Y, kDigitalSize.Width, kDigitalSize.Height);
    Declare({IsAnalog ? dial : digits, PaintedRole::Picture, time});
    Declare({kModeButton, PaintedRole::Button, IsAnalog ? u"Digital clock" : u"Analog clock"});
}

void CClockPage::UpdatePromptly() {
    Host().Windows().KillTimer(Handle(), kTimerClockPrompt);
    Invalidate();
}

void CClockPage::UpdateRegularly() {
    Invalidate();
}

void CClockPage::TakeStylusDown(Point point) {
    if (TakePageBarPress(point)) {
        return;
    }
    if (kHeaderPress.Contains(point)) {
        // Not waited for, and a device without a clock program just does nothing.
        static_cast<void>(Host().Processes().CreateProcessW(kClockProgram, u""));
    } else if (kModeButtonPress.Contains(point)) {
        ToggleFace();
    }
}

void CClockPage::TakeKeyUp(int key) {
    if (key >= VK_LEFT && key <= VK_DOWN) {
        ToggleFace();
    }
}

void CClockPage::ToggleFace() {
    IsAnalog = !IsAnalog;
    Invalidate();
}

} // namespace tavo
