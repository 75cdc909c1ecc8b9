// The desktop window: shows the device's screen as large as fits, and asks the program before it closes.
#pragma once

#include "host/qt/device.h"
#include "host/qt/file_dialogs.h"

#include <QTimer>
#include <QWidget>

#include <functional>

namespace tavo::qt {

class ChromeWidget;
class Keyboard;

struct DesktopSize {
    QSize Size;           // in the toolkit's pixels
    bool IsFixed = false; // cannot be resized
};

class DesktopWindow final : public QWidget {
  public:
    explicit DesktopWindow(Device& device);
    ~DesktopWindow() override;

    ChromeWidget& Navigation() { return *OwnNavigation; }

    ChromeWidget& Menus() { return *OwnMenus; }

    void SetKeyboard(Keyboard& keyboard) { Keys = &keyboard; }

    // Called whenever everything lies elsewhere.
    void SetLayoutWatch(std::function<void()> watch) { LayoutWatch = std::move(watch); }

    // Called with the calendar files that somebody drops on it.
    void SetDropWatch(TakePaths watch) { DropWatch = std::move(watch); }

    // Before it is first shown.
    void Start(const DesktopSize& size);
    // Shows or hides it, minimised or not, as the shell says.
    void FollowFrame();
    // Lays everything out anew when the screen it is on counts its pixels differently now. Cheap where nothing changed.
    void FollowRatio();
    // In front of other programs; the desktop's token may be empty.
    void BringForward(const QString& token);

    // The device's whole screen, where it lies on the desktop.
    QRect ScreenOnDesktop() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    void LayOut();
    void TakePaintScale();

    Device& Shared;
    ChromeWidget* OwnNavigation; // children of this widget
    ChromeWidget* OwnMenus;
    Keyboard* Keys = nullptr;
    std::function<void()> LayoutWatch;
    TakePaths DropWatch;
    QTimer Rest; // runs while the scale changes
    bool IsLaidOut = false;
    bool Following = false; // the shell, so it need not be told
};

// TAVO_SCALE if it is set, else the size remembered, else the largest half step that fits comfortably.
DesktopSize ChooseDesktopSize(const QByteArray& wishedScale, QSize remembered, QSize available);

} // namespace tavo::qt
