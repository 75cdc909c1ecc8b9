// Every number by which dialogs, controls, commands, timers, menus and pictures are known.
#pragma once

#include "platform/activation.h"
#include "res/bitmap_ids.h"
#include "res/control_ids.h"

namespace tavo {

// Messages of the program's own.
constexpr MessageNumber kChangeNotice = WM_USER + 1000; // appointments or category lists changed; to the main view
constexpr MessageNumber kSearchOn = WM_USER + 1001;     // Find: to itself, the next part of the search

// Timers, besides the one in platform/activation.h.
constexpr int kTimerClockPrompt = 1002;  // Clock page: first redraw
constexpr int kTimerClockRegular = 1003; // Clock page: every redraw after it
constexpr int kTimerChangeNotice = 1004; // main view: several notices cause one refresh
constexpr int kTimerWork = 1007;         // main view: the next slice of long work
constexpr int kTimerNewDay = 1008;       // Calendar page: another day may have begun
constexpr int kTimerDraft = 1009;        // edit dialog: what was typed is laid aside

// Dialog templates.
constexpr int kDialogAbout = 100;
constexpr int kDialogClock = 139;
constexpr int kDialogSchedule = 140;
constexpr int kDialogCalendar = 142;
constexpr int kDialogAppointment = 144;
constexpr int kDialogPattern = 265;
constexpr int kDialogRange = 266;
constexpr int kDialogRecurrence = 267;
constexpr int kDialogInkMemo = 268;
constexpr int kDialogAppointmentView = 269;
constexpr int kDialogCopyMemo = 270;
constexpr int kDialogSettings = 271;
constexpr int kDialogProgress = 272;
constexpr int kDialogFind = 273;
constexpr int kDialogGoToDate = 274;
constexpr int kDialogKeys = 275;

// Results of dialogs besides OK and Cancel.
constexpr int kResultModify = 10;
constexpr int kResultDelete = 11;

// Menus.
constexpr int kMainFrame = 128;  // document template: frame, document and view
constexpr int kMenuPopups = 131; // pop-ups "schedule" and "calendar"
constexpr int kMenuInkMemo = 206;
constexpr int kMenuPage = 207; // of the main pages' menu bars
constexpr int kMenuSchedulePage = 208;

// Commands of the whole program.
constexpr int kCommandAbout = 57664;
constexpr int kCommandExit = 57665;
constexpr int kCommandUndoStep = 57643;
constexpr int kCommandNewAlarm = 32811; // in the order of the kinds
constexpr int kCommandNewHoliday = 32812;
constexpr int kCommandNewAnniversary = 32813;
constexpr int kCommandNewAppointment = 32814;
constexpr int kCommandImport = 32815;
constexpr int kCommandExport = 32816;
constexpr int kCommandFind = 32817;
constexpr int kCommandGoToDate = 32818;
constexpr int kCommandBackup = 32821;
constexpr int kCommandPrintMonth = 32822;
constexpr int kCommandKeys = 32823;

// Commands on an item.
constexpr int kCommandModify = 32771;
constexpr int kCommandDelete = 32772;
constexpr int kCommandCopyToAlarm = 32773;
constexpr int kCommandPause = 32774;
constexpr int kCommandCopyToHoliday = 32775;
constexpr int kCommandCopyToAnniversary = 32776;
constexpr int kCommandView = 32804;

// What of a series is meant.
constexpr int kCommandThisDay = 32819;
constexpr int kCommandWholeSeries = 32820;

// Commands of the day menu. The first five stand for submenus and are replaced before the menu opens.
constexpr int kCommandDayAlarms = 32793;
constexpr int kCommandDayHolidays = 32794;
constexpr int kCommandDayAnniversaries = 32795;
constexpr int kCommandDaySchedules = 32796;
constexpr int kCommandDayMemos = 32802;
constexpr int kCommandAddMemo = 32798;
constexpr int kCommandFirstAlarm = 33001;
constexpr int kCommandLastAlarm = 33200;
constexpr int kCommandFirstHoliday = 33201;
constexpr int kCommandLastHoliday = 33400;
constexpr int kCommandFirstAnniversary = 33401;
constexpr int kCommandLastAnniversary = 33600;
constexpr int kCommandFirstSchedule = 33601;
constexpr int kCommandLastSchedule = 33800;
constexpr int kCommandFirstMemo = 33801;
constexpr int kCommandLastMemo = 34000;
constexpr int kCommandDayListLeft = 1048; // Calendar page: a Left key for the day list

// Commands of the ink editor.
constexpr int kCommandSelectAll = 32780;
constexpr int kCommandUndo = 32781;
constexpr int kCommandRedo = 32782;
constexpr int kCommandCut = 32783;
constexpr int kCommandCopy = 32784;
constexpr int kCommandPaste = 32785;
constexpr int kCommandClear = 32786;
constexpr int kCommandZoom75 = 32787;
constexpr int kCommandZoom100 = 32788;
constexpr int kCommandZoom150 = 32789;
constexpr int kCommandZoom200 = 32790;
constexpr int kCommandZoom300 = 32791;
constexpr int kCommandDeleteNote = 32803;
constexpr int kCommandRecorderBar = 204;
constexpr int kCommandInputMode = 205;

} // namespace tavo
