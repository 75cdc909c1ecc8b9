// The numbers of the pictures.
#pragma once

namespace tavo {

constexpr int kBitmapProgram = 128; // the program's icon

// Tab bar of the main pages and its highlighted tabs.
constexpr int kBitmapTabBar = 139;
constexpr int kBitmapTabSchedule = 140;
constexpr int kBitmapTabCalendar = 141;
constexpr int kBitmapTabSettings = 142;
constexpr int kBitmapTabFifth = 143; // of page number 4, which has no tab of its own
constexpr int kBitmapTabClock = 144;

// Calendar page.
constexpr int kBitmapWeekdays = 147;
constexpr int kBitmapBottomStrip = 148;
constexpr int kBitmapMarkEraser = 150;
constexpr int kBitmapToday = 156; // up, pressed

// Clock page.
constexpr int kBitmapDialFace = 145;
constexpr int kBitmapDigitalBackground = 153;
constexpr int kBitmapModeButton = 154; // shown on the dial, shown in digits

// Schedule page.
constexpr int kBitmapKinds = 151;  // one cell for each kind
constexpr int kBitmapNew = 152;    // up, pressed
constexpr int kBitmapArrows = 155; // previous, next

// Recurrence wizard.
constexpr int kBitmapPatternYearly = 163;
constexpr int kBitmapPatternWeekly = 164;
constexpr int kBitmapPatternMonthly = 165;
constexpr int kBitmapPatternDaily = 166;
constexpr int kBitmapSundayOff = 236;
constexpr int kBitmapSundayOn = 270;
constexpr int kBitmapMondayOff = 254;
constexpr int kBitmapMondayOn = 268;
constexpr int kBitmapTuesdayOff = 263;
constexpr int kBitmapTuesdayOn = 272;
constexpr int kBitmapWednesdayOff = 264;
constexpr int kBitmapWednesdayOn = 273;
constexpr int kBitmapThursdayOff = 265;
constexpr int kBitmapThursdayOn = 271;
constexpr int kBitmapFridayOff = 266;
constexpr int kBitmapFridayOn = 267;
constexpr int kBitmapSaturdayOff = 255;
constexpr int kBitmapSaturdayOn = 269;

// Ink editor and appointment view.
constexpr int kBitmapInkButtons = 203;
constexpr int kBitmapDeleteButton = 212; // up, pressed
constexpr int kBitmapModifyButton = 213; // up, pressed

// Appointment edit dialog.
constexpr int kBitmapPlay = 300;
constexpr int kBitmapStop = 301;

} // namespace tavo
