// The words of the appointment view, and its drawn buttons.
#include "memo/appointment_view_dlg.h"

#include "framework/format.h"
#include "memo/appointment_view_look.h"
#include "res/resource_ids.h"
#include "store/date_pictures.h"
#include "store/fit_text.h"

namespace tavo {

namespace {

constexpr Rect kSubjectPlace{5, 0, 215, 20};
constexpr int kSubjectWidth = 190;
constexpr Rect kFirstLinePlace{5, 25, 215, 39};
constexpr int kLineHeight = 14;
constexpr std::uint32_t kLineFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;

constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr Color kTextColor = Color::FromRgb(0, 0, 0);
constexpr Pen kNoteBorder{Color::FromRgb(0, 0, 0), 1};
constexpr std::u16string_view kAllDayEvent = u"All Day Event";

constexpr double kHoursOfDay = 24;
constexpr double kHalfSecond = 0.000005787037; // in days, against rounding

} // namespace

void CAppointmentViewDlg::Paint() {
    DropPainted();
    const Size size = Surface().GetSize();
    Surface().FillRect(Rect::Whole(size), kBackground);
    PaintButtons();
    PaintSubject();
    Line = kFirstLinePlace;
    if (Appointment.RecurType == kRecursOnce) {
        PaintTimes();
    } else {
        PaintRecurrence();
    }
    if (Ink != WindowHandle::None) {
        // The note lies over the whole width, so its border is the two lines above and below it.
        const int bottom = size.Height - kNoteMargin;
        Surface().DrawLine({0, kNoteTop - 1}, {size.Width, kNoteTop - 1}, kNoteBorder);
        Surface().DrawLine({0, bottom}, {size.Width, bottom}, kNoteBorder);
    }
    PresentSurface();
}

void CAppointmentViewDlg::PaintButtons() {
    Modify.Draw(Surface());
    Declare(Modify.Describe(u"Modify", kViewModify));
    Delete.Draw(Surface());
    Declare(Delete.Describe(u"Delete", kViewDelete));
}

void CAppointmentViewDlg::PaintSubject() {
    const FontHandle font = State.Fonts.FontArial10Bold;
    Surface().DrawTextW(FitText(Host().Drawing(), font, Appointment.Subject, kSubjectWidth), kSubjectPlace,
                        {font, kTextColor, kLineFormat});
    Declare({kSubjectPlace, PaintedRole::Header, Appointment.Subject});
}

void CAppointmentViewDlg::PaintTimes() {
    if (Appointment.AllDay) {
        PaintLine(FirstLine == SecondLine ? FirstLine : FormatText(u"%s ~ %s", FirstLine, SecondLine));
        PaintLine(std::u16string(kAllDayEvent));
        return;
    }
    const std::u16string start = TimeText(Appointment.Start);
    const std::u16string end = TimeText(Appointment.End);
    PaintLine(FormatText(u"%s,%s", FirstLine, start));
    if (FirstLine != SecondLine || start != end) {
        PaintLine(FormatText(u"~ %s,%s", SecondLine, end));
    }
}

void CAppointmentViewDlg::PaintRecurrence() {
    PaintLine(Rule);
    PaintLine(SecondLine.empty() ? FormatText(u"from %s", FirstLine)
                                 : FormatText(u"from %s until %s", FirstLine, SecondLine));
    if (Appointment.AllDay) {
        PaintLine(std::u16string(kAllDayEvent));
        return;
    }
    const std::u16string start = TimeText(Appointment.Start);
    const int hours = WholeHours();
    PaintLine(hours == 0 ? FormatText(u"at %s", start) : FormatText(u"at %s for %d hour(s)", start, hours));
}

void CAppointmentViewDlg::PaintLine(const std::u16string& text) {
    Surface().DrawTextW(text, Line, {State.Fonts.FontArial10, kTextColor, kLineFormat});
    Declare({Line, PaintedRole::Text, text});
    Line.Top = Line.Bottom;
    Line.Bottom = Line.Top + kLineHeight;
}

std::u16string CAppointmentViewDlg::TimeText(const SYSTEMTIME& time) const {
    return Host().Locale().GetTimeFormatW(LocaleId::User, time, kPictureListTime, kDateTimeBuffer).value_or(u"");
}

int CAppointmentViewDlg::WholeHours() const {
    DATE start = 0;
    DATE end = 0;
    if (!Host().Locale().SystemTimeToVariantTime(Appointment.Start, start) ||
        !Host().Locale().SystemTimeToVariantTime(Appointment.End, end)) {
        return 0;
    }
    return static_cast<int>((end - start) * kHoursOfDay + kHalfSecond);
}

} // namespace tavo
