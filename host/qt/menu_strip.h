// The bar at the bottom of the device's screen: menus on the left, buttons beside them, the input panel's button.
#pragma once

#include "host/qt/device_widget.h"

#include <functional>
#include <optional>

namespace tavo::qt {

class BarPainter;

class MenuStrip final : public DeviceWidget {
  public:
    MenuStrip(Device& device, QWidget* parent);

    // Takes menus and buttons from the bar that is shown.
    void Refresh();

    // A touch keyboard is wanted: shows its button, pressed or not, and who is told of a tap on it.
    void SetPanelButton(std::function<void()> tapped) { PanelTapped = std::move(tapped); }

    void SetPanelState(bool available, bool shown);

    // Where a menu of the bar opens, on the device's screen; the whole bar for an unknown one.
    Rect MenuPlace(int index) const;

    const std::vector<PaintedItem>& Items() const override { return Shown; }

    QString Title() const override { return QStringLiteral("Menu bar"); }

    bool TakesInput() const override;

  protected:
    void Draw(QPainter& painter, const QRect& area) override;
    void StylusDown(Point screen) override;
    void StylusMove(Point screen) override;
    void StylusUp(Point screen) override;
    bool event(QEvent* event) override;

  private:
    enum class PartKind { Menu, Button, Panel };

    struct Part {
        PartKind Kind = PartKind::Menu;
        int Number = 0; // a menu's index, a button's command
        Rect Area;      // on the screen
        std::u16string Name;
        bool Enabled = true;
        bool Checked = false;
        int Bitmap = 0;
        Rect Source;
    };

    void AddMenus(const std::vector<MenuItem>& menus, int& left);
    void AddButtons(const shell::MenuBarState& bar, int& left);
    void DrawPart(BarPainter& bar, const Part& part);
    const Part* PartAt(Point screen) const;
    bool IsOpen(const Part& part) const;
    void Choose(const Part& part);

    Font TitleFont;
    std::vector<Part> Parts;
    std::vector<PaintedItem> Shown;
    std::optional<std::size_t> Held;
    bool Pressed = false;
    bool PanelAvailable = false;
    bool PanelShown = false;
    std::function<void()> PanelTapped;
};

} // namespace tavo::qt
