// What is told to whom.
#include "host/shell/chrome/chrome.h"

#include <utility>

namespace tavo::shell {

void Chrome::Note(Change change, WindowHandle window) {
    switch (change) {
    case Change::Created:
    case Change::Bounds:
    case Change::Visibility:
    case Change::Enabled:
    case Change::Top:
    case Change::MenuBar:
        BarsChanged = true;
        break;
    case Change::BoxOpened:
    case Change::BoxClosed:
        Box.Refresh();
        break;
    case Change::Text:
        BarsChanged = BarsChanged || window == State.Tree.Top();
        break;
    default:
        break;
    }
}

bool Chrome::Follow() {
    if (!std::exchange(BarsChanged, false)) {
        return false;
    }
    Navigation.Refresh();
    Menus.Refresh();
    return true;
}

ChromePart* Chrome::PartAt(Point screen) {
    if (Box.IsOpen()) {
        return &Box;
    }
    for (ChromePart* part : {static_cast<ChromePart*>(&Navigation), static_cast<ChromePart*>(&Menus)}) {
        if (part->Bounds().Contains(screen)) {
            return part;
        }
    }
    return nullptr;
}

} // namespace tavo::shell
