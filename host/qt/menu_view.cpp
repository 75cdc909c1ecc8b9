// Menus as pop-up widgets.
#include "host/qt/menu_view.h"

#include "host/qt/call_later.h"
#include "host/qt/chrome_widget.h"
#include "host/qt/control_style.h"
#include "host/qt/menu_fitting.h"
#include "host/qt/missing_characters.h"

#include <QAction>
#include <QCoreApplication>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tavo::qt {
namespace {

constexpr double kWidestText = 190; // logical pixels that an entry's texts may take, so that its menu fits the screen
constexpr std::size_t kMostEntries = 14; // that fit it one below the other
constexpr char16_t kMoreText[] = u"More...";

// An item's text is the person's own: no character of it means a shortcut, and it stays on one line. It is shortened by
// logical pixels, so at the same character at every scale.
QString EntryText(const std::u16string& text, const QFontMetricsF& metrics, MissingCharacters& missing, double widest) {
    // Of a very long text its beginning, of which an entry shows a few words; half a character is left out.
    constexpr qsizetype longest = 512;
    QStringView beginning = QStringView(text).trimmed().left(longest);
    if (!beginning.isEmpty() && beginning.back().isHighSurrogate()) {
        beginning.chop(1);
    }
    QString shown = beginning.toString().simplified();
    missing.Replace(shown); // else the toolkit measures it narrower than it draws
    shown = metrics.elidedText(shown, Qt::ElideRight, widest);
    return shown.replace(QLatin1Char('&'), QLatin1String("&&"));
}

// The column that a menu keeps for shortcuts, beside all of its texts.
double WidestShortcut(std::span<const MenuItem> items, const QFontMetricsF& metrics) {
    double widest = 0;
    for (const MenuItem& item : items) {
        widest = std::max(widest, metrics.horizontalAdvance(QString::fromStdU16String(item.Shortcut)));
    }
    return widest;
}

} // namespace

MenuView::~MenuView() {
    Close();
}

QMenu* MenuView::Build(std::span<const MenuItem> items, QWidget* parent) {
    QMenu* menu = MakeEmpty(parent);
    Fill(*menu, items);
    return menu;
}

QMenu* MenuView::MakeEmpty(QWidget* parent) {
    auto* menu = new QMenu(parent);
    UseMenuFont(*menu, Shared.Geometry);
    menu->installEventFilter(this);
    return menu;
}

void MenuView::Fill(QMenu& menu, std::span<const MenuItem> items) {
    const QFont font = LogicalMenuFont(menu);
    const QFontMetricsF metrics(font);
    MissingCharacters missing(font);
    // Shortcuts are shown whole; a long text gives way to them.
    const double widest = kWidestText - WidestShortcut(items, metrics);
    const std::size_t shown = items.size() > kMostEntries ? kMostEntries - 1 : items.size();
    for (const MenuItem& item : items.first(shown)) {
        if (item.IsSeparator) {
            menu.addSeparator();
            continue;
        }
        const QString text =
            EntryText(item.Text, metrics, missing, item.Shortcut.empty() ? widest : widest - kMenuShortcutGap);
        QAction* action = nullptr;
        if (item.IsPopup || !item.Children.empty()) {
            action = AddSubmenu(menu, text, item.Children);
        } else {
            // The shell acts on shortcuts; here they are only shown.
            const QString shortcut = QString::fromStdU16String(item.Shortcut);
            action = menu.addAction(shortcut.isEmpty() ? text : text + QLatin1Char('\t') + shortcut);
            action->setData(item.Id);
            action->setCheckable(item.Checked);
            action->setChecked(item.Checked);
        }
        action->setEnabled(item.Enabled);
    }
    if (shown < items.size()) {
        AddSubmenu(menu, QString::fromUtf16(kMoreText), items.subspan(shown));
    }
}

// Its entries are made when it is about to open: a full day has hundreds, and most menus are closed again unseen. Its
// action is active before that, and not its own showing: the toolkit places it by its entries.
QAction* MenuView::AddSubmenu(QMenu& menu, const QString& title, std::span<const MenuItem> items) {
    QMenu* submenu = MakeEmpty(&menu);
    submenu->setTitle(title);
    QAction* action = menu.addMenu(submenu);
    connect(action, &QAction::hovered, submenu, [this, submenu, items = std::vector(items.begin(), items.end())] {
        if (submenu->isEmpty()) {
            Fill(*submenu, items);
        }
    });
    return action;
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
    const QRect title = Shared.Geometry.ToolkitPixels(Shared.Chrome.Menus.MenuPlace(open->Index));
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
    connect(menu, &QMenu::triggered, this, [this](QAction* action) { Chosen = action->data().toInt(); });
    // A choice is told only after the menu has hidden itself.
    connect(menu, &QMenu::aboutToHide, this, [this] { CallLater(this, [this] { Finish(); }); });
    menu->popup(corner);
    if (Shared.KeyWasLast) {
        // To the first entry that can be chosen; made active otherwise, it would open its submenu at once.
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
        QCoreApplication::sendEvent(menu, &down);
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
        static_cast<void>(Shared.Navigation.ChooseTracked(Chosen));
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
        static_cast<void>(Shared.Navigation.OpenBarMenu((open->Index + step + count) % count));
    }
}

bool MenuView::eventFilter(QObject* object, QEvent* event) {
    if (auto* menu = qobject_cast<QMenu*>(object); menu != nullptr && event->type() == QEvent::Show) {
        FitToScreen(*menu, Desktop.ScreenOnDesktop());
        return false;
    }
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
