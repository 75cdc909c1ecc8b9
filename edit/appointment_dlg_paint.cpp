// The painted form: labels on the left, values on the right.
#include "edit/appointment_dlg.h"
#include "res/resource_ids.h"
#include "store/date_pictures.h"
#include "store/fit_text.h"

#include <utility>

namespace tavo {

namespace {

constexpr Color kBackground = Color::FromRgb(255, 255, 255);
constexpr Color kShownRow = Color::FromRgb(230, 239, 250);
constexpr Color kLabelColor = Color::FromRgb(89, 99, 110);
constexpr Color kValueColor = Color::FromRgb(0, 0, 0);
constexpr Color kDisabledColor = Color::FromRgb(104, 104, 104); // less than a value, and still to be read
constexpr Color kLinkColor = Color::FromRgb(38, 100, 180);
constexpr Pen kRulePen{Color::FromRgb(153, 153, 153), 1};
constexpr Pen kTickPen{Color::FromRgb(38, 100, 180), 2};

constexpr int kRuleLeft = 5;
constexpr int kRuleRight = 235;
constexpr int kIndent = 3;       // of a value in the place of its control
constexpr int kDotsRoom = 24;    // what a shortened text is wider than asked: its last character and the dots
constexpr int kAllDayLeft = 137; // of the words in place of the times
constexpr int kBoxSize = 13;
constexpr int kBoxGap = 6;
constexpr Size kIconSize{16, 16};
constexpr int kPlayLeft = 196;
constexpr int kStopLeft = 214;
constexpr int kIconDrop = 4; // below the top of the row

constexpr int kPictureBuffer = 40; // UTF-16 units of a formatted date or time
constexpr std::uint32_t kLineFormat = DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX;
constexpr std::u16string_view kAllDayRecurring = u"All day recurring";
constexpr std::u16string_view kEditMemoText = u"Edit memo...";
constexpr std::u16string_view kOnlyThisDay = u"Only this day";

// Only what does not fit is shortened.
std::u16string ShortenTo(IDrawing& drawing, FontHandle font, std::u16string_view text, int room) {
    return IsWiderThan(drawing, font, text, room) ? FitText(drawing, font, text, room - kDotsRoom)
                                                  : std::u16string(text);
}

} // namespace

void CAppointmentDlg::Paint() {
    DropPainted();
    const AppointmentForm& form = Layout();
    Surface().FillRect(Rect::FromSize(0, 0, kClientArea.Width(), kClientArea.Height()), kBackground);
    Surface().DrawLine({kRuleLeft, form.Top - 1}, {kRuleRight, form.Top - 1}, kRulePen);
    for (int row = 0; row < static_cast<int>(form.Rows.size()); ++row) {
        PaintRow(row);
    }
    PresentSurface();
}

void CAppointmentDlg::PaintRow(int row) {
    const AppointmentForm& form = Layout();
    const auto index = static_cast<std::size_t>(row);
    const FormRow& fields = form.Rows[index];
    const Rect bounds = form.RowBounds(row);
    const int rule = bounds.Bottom - 1;
    PaintedItem item{bounds, PaintedRole::Row, fields.Label == 0 ? u"" : ItemText(fields.Label), row};
    for (const FormField& field : fields.Fields) {
        item.Selected = item.Selected || field.Control == ShownField;
    }
    if (item.Selected) {
        Surface().FillRect({kRuleLeft, bounds.Top, kRuleRight, rule}, kShownRow);
    }
    Surface().DrawTextW(item.Name, {kRuleLeft, bounds.Top, kValueLeft, rule},
                        {State.Fonts.FontArial10, kLabelColor, kLineFormat});
    Declare(std::move(item));
    for (const FormField& field : fields.Fields) {
        if (field.Control == kEditPreview) {
            PaintSoundIcons(bounds);
        } else {
            PaintField(row, field);
        }
    }
    const bool nextBelongsHere = index + 1 < form.Rows.size() && form.Rows[index + 1].Label == 0;
    Surface().DrawLine({nextBelongsHere ? kValueLeft : kRuleLeft, rule}, {kRuleRight, rule}, kRulePen);
}

void CAppointmentDlg::PaintField(int row, const FormField& field) {
    Rect bounds = Layout().FieldBounds(row, field);
    if (field.Control == kEditAllDay) {
        PaintAllDay(bounds);
        return;
    }
    const bool enabled = IsUsable(field.Control);
    const FontHandle font = State.Fonts.FontArial10;
    TextStyle style{font, enabled ? kValueColor : kDisabledColor, kLineFormat};
    const std::u16string text = TextOfField(field.Control);
    const bool saysAllDay = text == kAllDayRecurring;
    const int coveredBy =
        saysAllDay ? Layout().Rows[static_cast<std::size_t>(row)].Fields.front().Control : field.Control;
    const bool isCovered = ShownField == coveredBy && field.Control != kEditMemo;
    if (saysAllDay) {
        bounds.Left = kAllDayLeft;
        bounds.Right = kRuleRight + kIndent;
    }
    if (field.Control == kEditReminderValue) {
        style.Format |= DT_RIGHT;
    } else if (field.Control == kEditMemo) {
        style.Ink = enabled ? kLinkColor : kDisabledColor;
    }
    const bool isAlone = field.Width == FormField{}.Width;
    const Rect place{bounds.Left + kIndent, bounds.Top, isAlone ? kRuleRight : bounds.Right - kIndent, bounds.Bottom};
    const bool canBeLong = field.Control == kEditSubject || field.Control == kEditSound;
    const std::u16string shown = canBeLong ? ShortenTo(Host().Drawing(), font, text, place.Width()) : text;
    if (!isCovered) {
        Surface().DrawTextW(shown, place, style);
    }
    PaintedItem item{bounds, PaintedRole::Cell, text, field.Control};
    item.Selected = ShownField == field.Control;
    item.Enabled = enabled;
    Declare(std::move(item));
}

void CAppointmentDlg::PaintAllDay(const Rect& bounds) {
    std::u16string text = ItemText(kEditAllDay);
    if (ShownField != kEditAllDay) {
        DrawAllDayBox(bounds, text);
    }
    PaintedItem item{bounds, PaintedRole::Cell, std::move(text), kEditAllDay};
    item.Selected = ShownField == kEditAllDay;
    item.Pressed = IsAllDayChecked();
    item.Enabled = IsUsable(kEditAllDay);
    Declare(std::move(item));
}

// As the check box draws it, so that showing the control changes little.
void CAppointmentDlg::DrawAllDayBox(const Rect& bounds, std::u16string_view text) {
    const int top = bounds.Top + (bounds.Height() - kBoxSize) / 2;
    const Rect box = Rect::FromSize(bounds.Left + kIndent, top, kBoxSize, kBoxSize);
    Surface().FillRect(box, kRulePen.Ink);
    Surface().FillRect({box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1}, kBackground);
    if (IsAllDayChecked()) {
        Surface().DrawLine({box.Left + 3, box.Top + 6}, {box.Left + 6, box.Top + 9}, kTickPen);
        Surface().DrawLine({box.Left + 6, box.Top + 9}, {box.Left + 10, box.Top + 3}, kTickPen);
    }
    Surface().DrawTextW(text, {box.Right + kBoxGap, bounds.Top, bounds.Right, bounds.Bottom},
                        {State.Fonts.FontArial10, IsUsable(kEditAllDay) ? kValueColor : kDisabledColor, kLineFormat});
}

void CAppointmentDlg::PaintSoundIcons(const Rect& row) {
    if (ShownField == kEditPreview) {
        return; // the button lies in their place
    }
    const Rect play = Rect::FromSize(kPlayLeft, row.Top + kIconDrop, kIconSize.Width, kIconSize.Height);
    const Rect stop = Rect::FromSize(kStopLeft, row.Top + kIconDrop, kIconSize.Width, kIconSize.Height);
    const Rect whole = Rect::FromSize(0, 0, kIconSize.Width, kIconSize.Height);
    Surface().DrawBitmap(kBitmapPlay, {play.Left, play.Top}, whole);
    Surface().DrawBitmap(kBitmapStop, {stop.Left, stop.Top}, whole);
    PaintedItem playItem{play, PaintedRole::Button, u"Play", kBitmapPlay};
    playItem.Pressed = Preview.IsPlaying();
    playItem.Enabled = HasSound() && !IsOneDay();
    Declare(std::move(playItem));
    Declare({stop, PaintedRole::Button, u"Stop", kBitmapStop});
}

std::u16string CAppointmentDlg::TextOfField(int control) const {
    const bool isAllDay = Kind() == ItemKind::Appointment && IsAllDayChecked();
    switch (control) {
    case kEditStartDate:
    case kEditEndDate:
        return DateText(control);
    case kEditStartTime:
    case kEditEndTime:
        return isAllDay ? std::u16string(kAllDayRecurring) : TimeText(control);
    case kEditMemo:
        return std::u16string(kEditMemoText);
    case kEditRecurrence:
        return IsOneDay() ? std::u16string(kOnlyThisDay) : ItemText(control);
    default:
        return ItemText(control);
    }
}

std::u16string CAppointmentDlg::DateText(int control) const {
    const std::u16string_view picture = Kind() == ItemKind::Appointment ? kPicturePlainDate : kPictureEditDate;
    return Host()
        .Locale()
        .GetDateFormatW(LocaleId::User, Host().Controls().GetSystemtime(Control(control)), picture, kPictureBuffer)
        .value_or(std::u16string());
}

std::u16string CAppointmentDlg::TimeText(int control) const {
    const SYSTEMTIME time = Host().Controls().GetSystemtime(Control(control));
    return Host()
        .Locale()
        .GetTimeFormatW(LocaleId::User, time, Layout().TimePicture, kPictureBuffer)
        .value_or(std::u16string());
}

} // namespace tavo
