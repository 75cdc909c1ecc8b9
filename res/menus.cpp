// What the menus consist of.
#include "res/menus.h"

#include "res/resource_ids.h"

#include <string_view>
#include <utility>

namespace tavo {

namespace {

MenuItem Command(int id, std::u16string_view text) {
    MenuItem item;
    item.Id = id;
    item.Text = text;
    return item;
}

MenuItem Command(int id, std::u16string_view text, std::u16string_view shortcut) {
    MenuItem item = Command(id, text);
    item.Shortcut = shortcut;
    return item;
}

MenuItem Separator() {
    MenuItem item;
    item.IsSeparator = true;
    return item;
}

MenuItem Popup(std::u16string_view text, std::vector<MenuItem> children) {
    MenuItem item;
    item.Text = text;
    item.Children = std::move(children);
    item.IsPopup = true;
    return item;
}

std::vector<MenuItem> MakePopups() {
    return {
        Popup(u"schedule",
              {
                  Command(kCommandView, u"View..."),
                  Command(kCommandModify, u"Modify..."),
                  Command(kCommandDelete, u"Delete..."),
                  Command(kCommandPause, u"Pause"),
                  Separator(),
                  Command(kCommandCopyToAlarm, u"Copy to Alarm"),
                  Command(kCommandCopyToHoliday, u"Copy to Holiday"),
                  Command(kCommandCopyToAnniversary, u"Copy to Anniversary"),
              }),
        Popup(u"calendar",
              {
                  Command(kCommandDayAlarms, u"Alarm:"),
                  Command(kCommandDayHolidays, u"Holiday:"),
                  Command(kCommandDayAnniversaries, u"Anniversary:"),
                  Command(kCommandDaySchedules, u"Schedule:"),
                  Separator(),
                  Command(kCommandDayMemos, u"Memo:"),
                  Command(kCommandAddMemo, u"Add memo..."),
              }),
    };
}

std::vector<MenuItem> MakeInkMenus() {
    return {
        Popup(u"Edit",
              {
                  Command(kCommandUndo, u"Undo", u"Ctrl+Z"),
                  Command(kCommandRedo, u"Redo", u"Ctrl+Y"),
                  Separator(),
                  Command(kCommandCut, u"Cut", u"Ctrl+X"),
                  Command(kCommandCopy, u"Copy", u"Ctrl+C"),
                  Command(kCommandPaste, u"Paste", u"Ctrl+V"),
                  Command(kCommandClear, u"Clear", u"Del"),
                  Command(kCommandSelectAll, u"Select All", u"Ctrl+A"),
              }),
        Popup(u"Tool",
              {
                  Command(kCommandZoom75, u"75%"),
                  Command(kCommandZoom100, u"100%"),
                  Command(kCommandZoom150, u"150%"),
                  Command(kCommandZoom200, u"200%"),
                  Command(kCommandZoom300, u"300%"),
                  Separator(),
                  Command(kCommandDeleteNote, u"Delete Note"),
              }),
    };
}

std::vector<MenuItem> MakePageMenus() {
    return {
        Popup(u"Tools",
              {
                  Command(kCommandUndoStep, u"Undo", u"Ctrl+Z"),
                  Command(kCommandFind, u"Find...", u"Ctrl+F"),
                  Command(kCommandGoToDate, u"Go to date...", u"Ctrl+G"),
                  Separator(),
                  Popup(u"New",
                        {
                            Command(kCommandNewAlarm, u"Alarm...", u"Ctrl+1"),
                            Command(kCommandNewHoliday, u"Holiday...", u"Ctrl+2"),
                            Command(kCommandNewAnniversary, u"Anniversary...", u"Ctrl+3"),
                            Command(kCommandNewAppointment, u"Appointment...", u"Ctrl+4"),
                        }),
                  Separator(),
                  Command(kCommandImport, u"Import..."),
                  Command(kCommandExport, u"Export..."),
                  Command(kCommandBackup, u"Backup..."),
                  Command(kCommandPrintMonth, u"Print month...", u"Ctrl+P"),
                  Separator(),
                  Command(kCommandKeys, u"Keys...", u"F1"),
                  Command(kCommandAbout, u"About Tavo Calendar..."),
                  Command(kCommandExit, u"Exit"),
              }),
    };
}

} // namespace

std::vector<MenuItem> LoadMenuW(int menu) {
    switch (menu) {
    case kMenuPopups:
        return MakePopups();
    case kMenuInkMemo:
        return MakeInkMenus();
    case kMenuPage:
        return MakePageMenus();
    case kMenuSchedulePage:
        return {MakePopups().at(kPopupSchedule), MakePageMenus().front()};
    default:
        return {};
    }
}

} // namespace tavo
