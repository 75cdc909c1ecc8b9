// Menus as pop-up widgets.
#include "host/qt/menu_view.h"

#include "host/qt/call_later.h"
#include "host/qt/menu_strip.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

namespace tavo::qt {
namespace {

constexpr double kMenuPixels = 13.0;

} // namespace

MenuView::~MenuView() {
    Close();
}

QMenu* MenuView::Build(const std::vector<MenuItem>& items, QWidget* parent) {
    auto* menu = new QMenu(parent);
    QFont font = menu->font();
    font.setPixelSize(Shared.Geometry.Length(kMenuPixels));
    menu->setFont(font);
    for (const MenuItem& item : items) {
        if (item.IsSeparator) {
            menu->addSeparator();
            continue;
        }
        const QString text = QString::fromStdU16String(item.Text);
        QAction* action = nullptr;
        if (item.IsPopup || !item.Children.empty()) {
            QMenu* submenu = Build(item.Children, menu);
            submenu->setTitle(text);
            action = menu->addMenu(submenu);
        } else {
            // The shell acts on shortcuts; here they are only shown.
            const QString shortcut = QString::fromStdU16String(item.Shortcut);
            action = menu->addAction(shortcut.isEmpty() ? text : text + QLatin1Char('\t') + shortcut);
            action->setData(item.Id);
            action->setCheckable(item.Checked);
            action->setChecked(item.Checked);
        }
        action->setEnabled(item.Enabled);
    }
    return menu;
}

QMenu* MenuView::Current() const {
    return Menu;
}

void MenuView::OpenBarMenu() {
    const shell::MenuBarState* bar = Shared.State.ShownBar();
    const auto& open = Shared.State.Menus.BarMenu;
    if (bar == nullptr || !open.has_value() || open->Index >= static_cast<int>(bar->Menus.size())) {
        return;
    }
    QMenu* menu = Build(bar->Menus[static_cast<std::size_t>(open->Index)].Children, &Desktop);
    const QRect title = Shared.Geometry.ToolkitPixels(Desktop.Menus().MenuPlace(open->Index));
    const QPoint top = Desktop.mapToGlobal(title.topLeft());
    Open(menu, {top.x(), top.y() - menu->sizeHint().height()});
    Desktop.Menus().update();
}

void MenuView::OpenTracked() {
    const auto& tracked = Shared.State.Menus.Tracked;
    if (!tracked.has_value()) {
        return;
    }
    QMenu* menu = Build(tracked->Items, &Desktop);
    const Point at = tracked->At;
    QPoint corner = Desktop.mapToGlobal(Shared.Geometry.ToolkitPixels(Rect::FromSize(at.X, at.Y, 1, 1)).topLeft());
    if (tracked->Align == MenuAlign::Right) {
        corner.rx() -= menu->sizeHint().width();
    }
    Open(menu, corner);
}

void MenuView::Open(QMenu* menu, QPoint corner) {
    Close();
    Shared.Stylus.Cancel(); // the menu takes over whatever gesture opened it
    Menu = menu;
    Chosen = 0;
    menu->installEventFilter(this);
    connect(menu, &QMenu::triggered, this, [this](QAction* action) { Chosen = action->data().toInt(); });
    // A choice is told only after the menu has hidden itself.
    connect(menu, &QMenu::aboutToHide, this, [this] { CallLater(this, [this] { Finish(); }); });
    const QRect screen = Desktop.ScreenOnDesktop();
    const QSize size = menu->sizeHint();
    corner.setX(std::clamp(corner.x(), screen.left(), std::max(screen.left(), screen.right() + 1 - size.width())));
    corner.setY(std::clamp(corner.y(), screen.top(), std::max(screen.top(), screen.bottom() + 1 - size.height())));
    menu->popup(corner);
    if (Shared.KeyWasLast && !menu->actions().isEmpty()) {
        menu->setActiveAction(menu->actions().front());
    }
}

void MenuView::Finish() {
    if (Menu.isNull() || Menu->isVisible()) {
        return;
    }
    Menu->deleteLater();
    Menu.clear();
    Desktop.Menus().update();
    if (Shared.State.Menus.Tracked.has_value()) {
        (void)Shared.Navigation.ChooseTracked(Chosen);
    } else if (Chosen == 0 || !Shared.Navigation.ChooseCommand(Chosen)) {
        Shared.Navigation.CloseBarMenu();
    }
}

void MenuView::Close() {
    if (Menu.isNull()) {
        return;
    }
    Menu->disconnect(this);
    Menu->hide();
    Menu->deleteLater();
    Menu.clear();
    Desktop.Menus().update();
}

void MenuView::OpenNeighbour(int step) {
    const shell::MenuBarState* bar = Shared.State.ShownBar();
    const auto& open = Shared.State.Menus.BarMenu;
    if (bar != nullptr && open.has_value() && bar->Menus.size() > 1) {
        const int count = static_cast<int>(bar->Menus.size());
        (void)Shared.Navigation.OpenBarMenu((open->Index + step + count) % count);
    }
}

bool MenuView::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::KeyPress || object != Menu.data() || !Shared.State.Menus.BarMenu.has_value()) {
        return false;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    const QAction* active = Menu->activeAction();
    const bool opensSubmenu = active != nullptr && active->menu() != nullptr;
    if (key.key() == Qt::Key_Left || (key.key() == Qt::Key_Right && !opensSubmenu)) {
        OpenNeighbour(key.key() == Qt::Key_Left ? -1 : 1);
        return true;
    }
    if (key.key() == Qt::Key_F10) {
        Menu->hide();
        return true;
    }
    return false;
}

} // namespace tavo::qt
