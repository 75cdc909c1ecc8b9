// The numbers of the controls, by the dialog they belong to.
#pragma once

namespace tavo {

constexpr int kStaticText = -1; // a text that nobody asks for

// Calendar page (142).
constexpr int kCalendarScrollBar = 1021;

// Schedule page (140).
constexpr int kScheduleAlarmPlace = 1002;
constexpr int kScheduleHolidayPlace = 1003;
constexpr int kScheduleAnniversaryPlace = 1004;
constexpr int kScheduleAppointmentPlace = 1005;
constexpr int kScheduleScrollBar = 1022;
constexpr int kSchedulePeriodStart = 1026;
constexpr int kSchedulePeriodEnd = 1031;

// Settings page (271).
constexpr int kSettingsAlarms = 1051;
constexpr int kSettingsHolidays = 1052;
constexpr int kSettingsAnniversaries = 1053;
constexpr int kSettingsAppointments = 1054;
constexpr int kSettingsMemos = 1055;
constexpr int kSettingsDelete = 1056;

// Appointment edit dialog (144).
constexpr int kEditRecurLabel = 1019;
constexpr int kEditRecurrence = 1020;
constexpr int kEditStartLabel = 1024;
constexpr int kEditEndLabel = 1025;
constexpr int kEditStartDate = 1026;
constexpr int kEditStartTime = 1027;
constexpr int kEditSubject = 1028;
constexpr int kEditSubjectLabel = 1029;
constexpr int kEditEndTime = 1030;
constexpr int kEditEndDate = 1031;
constexpr int kEditAllDay = 1032;
constexpr int kEditAlarmLabel = 1034;
constexpr int kEditReminder = 1035;
constexpr int kEditReminderValue = 1036;
constexpr int kEditReminderUnit = 1037;
constexpr int kEditSound = 1038;
constexpr int kEditCategoryLabel = 1039;
constexpr int kEditMemoLabel = 1040;
constexpr int kEditPreview = 1045;
constexpr int kEditMemo = 1049;

// Recurrence wizard (267).
constexpr int kWizardBack = 1001;
constexpr int kWizardNext = 1002;

// Pattern page (265).
constexpr int kPatternDaysLabel = 1001;
constexpr int kPatternTabs = 1003;
constexpr int kPatternWeeklyEveryLabel = 1010;
constexpr int kPatternWeeksLabel = 1011;
constexpr int kPatternMonthlyThe = 1012;
constexpr int kPatternYearlyNth = 1013;
constexpr int kPatternSaturday = 1014;
constexpr int kPatternSunday = 1021;
constexpr int kPatternMonday = 1022;
constexpr int kPatternTuesday = 1023;
constexpr int kPatternWednesday = 1024;
constexpr int kPatternDayInterval = 1026;
constexpr int kPatternWeekInterval = 1027;
constexpr int kPatternMonthlyDay = 1028;
constexpr int kPatternTheOrdinal = 1029;
constexpr int kPatternDayMonths = 1030;
constexpr int kPatternDayOfMonth = 1031;
constexpr int kPatternTheMonths = 1032;
constexpr int kPatternDayOfEveryLabel = 1033;
constexpr int kPatternTheWeekday = 1034;
constexpr int kPatternYearlyDay = 1035;
constexpr int kPatternThursday = 1036;
constexpr int kPatternDayMonthsLabel = 1037;
constexpr int kPatternTheMonthsLabel = 1038;
constexpr int kPatternYearDay = 1039;
constexpr int kPatternYearDayMonth = 1040;
constexpr int kPatternFriday = 1045;
constexpr int kPatternYearNthMonth = 1046;
constexpr int kPatternYearNthOrdinal = 1047;
constexpr int kPatternYearNthWeekday = 1048;
constexpr int kPatternYearOfLabel = 1049;
constexpr int kPatternDailyEveryLabel = 1056;
constexpr int kPatternTheOfEveryLabel = 1057;

// Range page (266).
constexpr int kRangeNoEnd = 1006;
constexpr int kRangeEndsOn = 1007;
constexpr int kRangeLabel = 1009;
constexpr int kRangeEndDate = 1041;
constexpr int kRangeEndsAfter = 1042;
constexpr int kRangeCount = 1045;

// The paper of the ink editor (268) and of the appointment view (269).
constexpr int kInkPaper = 1066;

// Appointment view (269).
constexpr int kViewModify = 1000;
constexpr int kViewDelete = 1001;

// Copy memo dialog (270).
constexpr int kCopyMemoLabel = 1012;
constexpr int kCopyMemoName = 1017;
constexpr int kCopyMemoOk = 1064;

// Find (273).
constexpr int kFindText = 1068;
constexpr int kFindScrollBar = 1069;

// Go to date (274).
constexpr int kGoToDateDay = 1070;

} // namespace tavo
