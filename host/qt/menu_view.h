// The open menu: of the menu bar, or tracked anywhere on the screen.
#pragma once

#include "host/qt/desktop_window.h"

#include <QObject>
#include <QPointer>

#include <span>

class QAction;
class QMenu;
class QString;

namespace tavo::qt {

class MenuView final : public QObject {
  public:
    MenuView(Device& device, DesktopWindow& desktop) : Shared(device), Desktop(desktop) {}

    ~MenuView() override;

    // What the shell says is to open now.
    void OpenBarMenu();
    void OpenTracked();
    // Closed by the program, not by a choice.
    void Close();

    QMenu* Current() const;

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    QMenu* Build(std::span<const MenuItem> items, QWidget* parent);
    QMenu* MakeEmpty(QWidget* parent);
    // What does not fit the screen goes to a menu of its own behind a last entry.
    void Fill(QMenu& menu, std::span<const MenuItem> items);
    QAction* AddSubmenu(QMenu& menu, const QString& title, std::span<const MenuItem> items);
    void Open(QMenu* menu, QPoint corner);
    void Finish();
    void OpenNeighbour(int step);

    Device& Shared;
    DesktopWindow& Desktop;
    QPointer<QMenu> Menu;
    int Chosen = 0;
};

} // namespace tavo::qt
