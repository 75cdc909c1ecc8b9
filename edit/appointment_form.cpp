// The tables of the three forms.
#include "edit/appointment_form.h"

#include "res/control_ids.h"
#include "store/date_pictures.h"

#include <cstddef>

namespace tavo {

namespace {

constexpr int kTimeTapLeft = 148;
constexpr int kTimeLeft = 150;

constexpr FormField kSubject[] = {{kEditSubject}};
constexpr FormField kDate[] = {{kEditStartDate}};
constexpr FormField kTime[] = {{kEditStartTime}};
constexpr FormField kStart[] = {{kEditStartDate, kValueLeft, kValueLeft, 83},
                                {kEditStartTime, kTimeTapLeft, kTimeLeft, 80}};
constexpr FormField kEnd[] = {{kEditEndDate, kValueLeft, kValueLeft, 83}, {kEditEndTime, kTimeTapLeft, kTimeLeft, 80}};
constexpr FormField kAllDay[] = {{kEditAllDay}};
constexpr FormField kRecurrence[] = {{kEditRecurrence}};
constexpr FormField kReminder[] = {
    {kEditReminder, kValueLeft, kValueLeft, 50}, {kEditReminderValue, 115, 118, 35}, {kEditReminderUnit, 153, 156, 75}};
constexpr FormField kSound[] = {{kEditSound, kValueLeft, kValueLeft, 125}, {kEditPreview, 196, 200, 30, 20}};
constexpr FormField kMemo[] = {{kEditMemo}};

constexpr FormRow kAlarmRows[] = {{kEditSubjectLabel, kSubject},  {kEditStartLabel, kDate},  {kEditEndLabel, kTime},
                                  {kEditRecurLabel, kRecurrence}, {kEditAlarmLabel, kSound}, {kEditMemoLabel, kMemo}};
constexpr FormRow kDayRows[] = {{kEditSubjectLabel, kSubject},
                                {kEditStartLabel, kDate},
                                {kEditRecurLabel, kRecurrence},
                                {kEditAlarmLabel, kReminder},
                                {0, kSound},
                                {kEditMemoLabel, kMemo}};
constexpr FormRow kAppointmentRows[] = {
    {kEditSubjectLabel, kSubject},  {kEditStartLabel, kStart},    {kEditEndLabel, kEnd}, {0, kAllDay},
    {kEditRecurLabel, kRecurrence}, {kEditAlarmLabel, kReminder}, {0, kSound},           {kEditMemoLabel, kMemo}};

constexpr AppointmentForm kAlarmForm{15, u"Date :", u"Time :", kPictureEditTimeSeconds, kAlarmRows};
constexpr AppointmentForm kDayForm{15, u"Date :", u"End :", kPictureEditTime, kDayRows};
constexpr AppointmentForm kAppointmentForm{10, u"Start :", u"End :", kPictureEditTime, kAppointmentRows};

} // namespace

Rect AppointmentForm::RowBounds(int row) const {
    return Rect::FromSize(0, Top + row * kRowHeight, kFormWidth, kRowHeight);
}

Rect AppointmentForm::FieldBounds(int row, const FormField& field) const {
    return Rect::FromSize(field.Left, Top + row * kRowHeight, field.Width, field.Height);
}

int AppointmentForm::RowAt(int y) const {
    const int row = (y - Top) / kRowHeight;
    return row < static_cast<int>(Rows.size()) ? row : -1;
}

const FormField* AppointmentForm::FieldAt(const FormRow& row, int x) {
    const FormField* found = nullptr;
    for (const FormField& field : row.Fields) {
        if (x >= field.TapLeft) {
            found = &field;
        }
    }
    return found;
}

const AppointmentForm& FormOfKind(ItemKind kind) {
    switch (kind) {
    case ItemKind::Alarm:
        return kAlarmForm;
    case ItemKind::Holiday:
    case ItemKind::Anniversary:
        return kDayForm;
    default:
        return kAppointmentForm;
    }
}

} // namespace tavo
