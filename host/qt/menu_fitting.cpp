// Font and place of pop-up menus.
#include "host/qt/menu_fitting.h"

#include <QMenu>

#include <algorithm>

namespace tavo::qt {
namespace {

constexpr double kMenuPixels = 13.0;

} // namespace

void UseMenuFont(QMenu& menu, const ScreenGeometry& geometry) {
    QFont font = menu.font();
    font.setPixelSize(geometry.Length(kMenuPixels));
    menu.setFont(font);
}

QFont LogicalMenuFont(const QMenu& menu) {
    QFont font = menu.font();
    font.setPixelSize(static_cast<int>(kMenuPixels));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void FitToScreen(QMenu& menu, const QRect& screen) {
    QRect place(menu.pos(), menu.sizeHint());
    place.setHeight(std::min(place.height(), screen.height()));
    place.setWidth(std::min(place.width(), screen.width()));
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() + 1 - place.height()));
    menu.setGeometry(place);
}

} // namespace tavo::qt
