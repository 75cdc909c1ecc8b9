// The conformance suite's hands and eyes on the desktop: events of the window system in, widgets out.
#include "host/qt/chrome_widget.h"
#include "host/qt/controls/month_popup.h"
#include "tests/conformance/device_driver.h"
#include "tests/qt/event_script.h"
#include "tests/qt/hands.h"
#include "tests/qt/temporary_root.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>

namespace tavo::conformance {
namespace {

constexpr int kScriptEnded = -32000;

// With its entries, which a submenu has from the moment that its action is pointed at.
QMenu* SubmenuOf(QAction& action) {
    action.hover();
    return action.menu();
}

std::vector<MenuItem> ReadMenu(const QMenu* menu) {
    std::vector<MenuItem> items;
    for (QAction* action : menu->actions()) {
        MenuItem item;
        item.IsSeparator = action->isSeparator();
        if (!item.IsSeparator) {
            item.Id = action->data().toInt();
            item.Text = action->text().section(QLatin1Char('\t'), 0, 0).toStdU16String();
            item.Shortcut = action->text().section(QLatin1Char('\t'), 1).toStdU16String();
            item.Enabled = action->isEnabled();
            item.Checked = action->isChecked();
            item.IsPopup = action->menu() != nullptr;
            item.Children = item.IsPopup ? ReadMenu(SubmenuOf(*action)) : std::vector<MenuItem>();
        }
        items.push_back(std::move(item));
    }
    return items;
}

QAction* FindAction(const QMenu* menu, int command) {
    for (QAction* action : menu->actions()) {
        QAction* below = action->menu() == nullptr ? nullptr : FindAction(SubmenuOf(*action), command);
        if (below != nullptr || action->data().toInt() == command) {
            return below != nullptr ? below : action;
        }
    }
    return nullptr;
}

class QtDriver final : public IDeviceDriver {
  public:
    IHost& Host() override { return Real; }

    void Do(std::function<void()> step) override { Script.Do(std::move(step)); }

    void PressStylus(Point screen) override { qt::PressMouse(Real, screen); }

    void MoveStylus(Point screen) override { qt::MoveMouse(Real, screen); }

    void ReleaseStylus(Point screen) override { qt::ReleaseMouse(Real, screen); }

    void PressKey(int key, int modifiers) override { qt::PressKey(Real, key, modifiers); }

    void ReleaseKey(int key, int modifiers) override { qt::ReleaseKey(Real, key, modifiers); }

    void TypeCharacter(char16_t character) override { qt::TypeCharacter(Real, character); }

    void OpenList(WindowHandle control) override {
        const Rect place = Real.Parts().State.Tree.ScreenBounds(control);
        qt::TapMiddle(Real, {place.Right - 8, place.Top, place.Right - 4, place.Bottom}); // its arrow
    }

    void CloseList(WindowHandle) override {
        qt::PressKey(Real, VK_ESCAPE, 0);
        qt::ReleaseKey(Real, VK_ESCAPE, 0);
    }

    void ChooseEntry(WindowHandle control, int index) override {
        if (auto* box = Find<QComboBox>(control); box != nullptr && box->view()->isVisible()) {
            box->view()->setCurrentIndex(box->model()->index(index, 0));
            QTest::keyClick(box->view(), Qt::Key_Return);
        }
    }

    void Pick(WindowHandle control, const SYSTEMTIME& time) override {
        const bool isDate = Real.Parts().State.Tree.FindControl(control)->Kind == ControlKind::DatePicker;
        const QString typed = isDate ? QDate(time.Year, time.Month, time.Day).toString(QStringLiteral("MMddyyyy"))
                                     : QTime(time.Hour, time.Minute).toString(QStringLiteral("HHmm")) +
                                           QLatin1Char(time.Hour < 12 ? 'a' : 'p');
        Find<QAbstractSpinBox>(control)->setFocus();
        qt::PressKey(Real, VK_HOME, 0);
        qt::ReleaseKey(Real, VK_HOME, 0);
        for (const QChar character : typed) {
            qt::TypeCharacter(Real, character.unicode());
        }
    }

    void Scroll(WindowHandle control, int request, int position) override {
        auto* bar = Find<QScrollBar>(control);
        switch (request) {
        case SB_LINEUP:
            bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
            break;
        case SB_LINEDOWN:
            bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
            break;
        case SB_PAGEUP:
            bar->triggerAction(QAbstractSlider::SliderPageStepSub);
            break;
        case SB_PAGEDOWN:
            bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
            break;
        default:
            bar->setSliderDown(true);
            bar->setSliderPosition(position);
            bar->setSliderDown(false);
            break;
        }
    }

    void OpenBarMenu(int index) override {
        const shell::MenuStrip& menus = Real.Parts().Chrome.Menus;
        if (const Rect place = menus.MenuPlace(index); place != kMenuBar) {
            qt::TapMiddle(Real, place);
        }
    }

    void ChooseCommand(int command) override {
        if (QMenu* menu = Real.OpenMenu().Current(); menu != nullptr) {
            Trigger(menu, command);
            return;
        }
        const shell::MenuStrip& strip = Real.Parts().Chrome.Menus;
        for (const PaintedItem& item : strip.Items()) {
            if (item.Id == command) {
                const Rect& bounds = item.Bounds;
                qt::TapMiddle(Real,
                              Rect::FromSize(bounds.Left, kMenuBar.Top + bounds.Top, bounds.Width(), bounds.Height()));
            }
        }
    }

    void ChooseTracked(int command) override {
        if (QMenu* menu = Real.OpenMenu().Current(); menu != nullptr) {
            Trigger(menu, command);
        }
    }

    void AnswerBox(int answer) override {
        const auto& items = Real.Box().Items();
        for (const PaintedItem& item : items) {
            if (Real.Box().isVisible() && item.Role == PaintedRole::Button && item.Id == answer) {
                qt::TapMiddle(Real, Rect(item.Bounds));
                return;
            }
        }
    }

    void RequestClose() override { Real.Desktop().close(); }

    void RequestQuit() override {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
    }

    void Minimize(bool minimized) override { minimized ? Real.Desktop().showMinimized() : Real.Desktop().showNormal(); }

    void ChangeScale() override {
        const bool isSmall = Real.Desktop().height() == kScreenSize.Height;
        const int scale = isSmall ? 2 : 1;
        Real.Desktop().resize(kScreenSize.Width * scale, kScreenSize.Height * scale);
    }

    void PassTime(int milliseconds) override { Script.Pass(std::chrono::milliseconds(milliseconds)); }

    Color PixelAt(Point screen) override { return qt::ReadPixel(Real, screen); }

    std::u16string Caption() override {
        Real.UpdateWidgets();
        return Real.Desktop().Navigation().Title().toStdU16String();
    }

    bool IsListOpen(WindowHandle control) override {
        if (const auto* box = Find<QComboBox>(control); box != nullptr) {
            return box->view()->isVisible();
        }
        const auto* field = Find<QAbstractSpinBox>(control);
        const auto* popup =
            field == nullptr ? nullptr : dynamic_cast<qt::MonthPopup*>(QApplication::activePopupWidget());
        return popup != nullptr && popup->parentWidget() == field;
    }

    std::vector<std::u16string> EntriesOf(WindowHandle control) override {
        std::vector<std::u16string> entries;
        if (const auto* box = Find<QComboBox>(control); box != nullptr && box->view()->isVisible()) {
            for (int i = 0; i < box->count(); ++i) {
                entries.push_back(box->itemText(i).toStdU16String());
            }
        }
        return entries;
    }

    std::u16string ShownTextOf(WindowHandle control) override {
        if (const auto* edit = Find<QLineEdit>(control); edit != nullptr) {
            return edit->text().toStdU16String();
        }
        if (const auto* box = Find<QComboBox>(control); box != nullptr) {
            return box->currentText().toStdU16String();
        }
        if (const auto* field = Find<QAbstractSpinBox>(control); field != nullptr) {
            return field->text().toStdU16String();
        }
        const auto* label = Find<QLabel>(control);
        return label == nullptr ? std::u16string() : label->text().toStdU16String();
    }

    bool IsControlShown(WindowHandle control) override {
        const auto* widget = Find<QWidget>(control);
        return widget != nullptr && widget->isVisible();
    }

    std::vector<MenuItem> TrackedItems() override {
        return Real.Parts().State.Menus.Tracked.has_value() ? OpenItems() : std::vector<MenuItem>();
    }

    std::vector<MenuItem> OpenBarItems() override {
        return Real.Parts().State.Menus.BarMenu.has_value() ? OpenItems() : std::vector<MenuItem>();
    }

    std::u16string BoxText() override {
        if (!Real.Box().isVisible()) {
            return {};
        }
        for (const PaintedItem& item : Real.Box().Items()) {
            if (item.Role == PaintedRole::Text) {
                return item.Name;
            }
        }
        return {};
    }

  private:
    template <class Kind> Kind* Find(WindowHandle control) {
        Real.UpdateWidgets();
        qt::ControlView* view = Real.Views().FindControl(control);
        return view == nullptr ? nullptr : qobject_cast<Kind*>(&view->Widget());
    }

    std::vector<MenuItem> OpenItems() {
        const QMenu* menu = Real.OpenMenu().Current();
        return menu == nullptr || !menu->isVisible() ? std::vector<MenuItem>() : ReadMenu(menu);
    }

    // As a click on the item does: a grey one leaves the menu open.
    static void Trigger(QMenu* menu, int command) {
        QAction* action = command == 0 ? nullptr : FindAction(menu, command);
        if (command != 0 && (action == nullptr || !action->isEnabled())) {
            return;
        }
        if (action != nullptr) {
            action->trigger();
        }
        menu->hide();
    }

    qt::TemporaryRoot Root;
    qt::QtHost Real{{Root.Open(), ""}};
    qt::EventScript Script{[this] { Real.Queue().PostQuitMessage(kScriptEnded); }};
};

} // namespace

std::unique_ptr<IDeviceDriver> MakeDriver() {
    return std::make_unique<QtDriver>();
}

} // namespace tavo::conformance
