// Events of the window system.
#include "tests/qt/hands.h"

#include <QTest>
#include <QWindow>

namespace tavo::qt {
namespace {

QPoint Middle(QtHost& host, Point screen) {
    return host.Parts().Geometry.ToolkitPixels(Rect::FromSize(screen.X, screen.Y, 1, 1)).center();
}

Qt::Key ToToolkitKey(int key) {
    if (key >= VK_F1 && key < VK_F1 + 12) {
        return static_cast<Qt::Key>(Qt::Key_F1 + (key - VK_F1));
    }
    switch (key) {
    case VK_BACK:
        return Qt::Key_Backspace;
    case VK_TAB:
        return Qt::Key_Tab;
    case VK_RETURN:
        return Qt::Key_Return;
    case VK_ESCAPE:
        return Qt::Key_Escape;
    case VK_PRIOR:
        return Qt::Key_PageUp;
    case VK_NEXT:
        return Qt::Key_PageDown;
    case VK_END:
        return Qt::Key_End;
    case VK_HOME:
        return Qt::Key_Home;
    case VK_LEFT:
        return Qt::Key_Left;
    case VK_UP:
        return Qt::Key_Up;
    case VK_RIGHT:
        return Qt::Key_Right;
    case VK_DOWN:
        return Qt::Key_Down;
    case VK_DELETE:
        return Qt::Key_Delete;
    default:
        return static_cast<Qt::Key>(key); // letters and digits are their own
    }
}

Qt::KeyboardModifiers ToToolkitModifiers(int modifiers) {
    Qt::KeyboardModifiers all;
    all.setFlag(Qt::ShiftModifier, (modifiers & kModifierShift) != 0);
    all.setFlag(Qt::ControlModifier, (modifiers & kModifierControl) != 0);
    all.setFlag(Qt::AltModifier, (modifiers & kModifierAlt) != 0);
    return all;
}

// Where the window system sends keys: an open menu or list has them before the desktop window.
QWindow* KeyWindow(QtHost& host) {
    const QWidget* popup = QApplication::activePopupWidget();
    return popup == nullptr ? host.Desktop().windowHandle() : popup->windowHandle();
}

} // namespace

void PressMouse(QtHost& host, Point screen) {
    QTest::mousePress(host.Desktop().windowHandle(), Qt::LeftButton, {}, Middle(host, screen));
}

void MoveMouse(QtHost& host, Point screen) {
    QTest::mouseMove(host.Desktop().windowHandle(), Middle(host, screen));
}

void ReleaseMouse(QtHost& host, Point screen) {
    QTest::mouseRelease(host.Desktop().windowHandle(), Qt::LeftButton, {}, Middle(host, screen));
}

void PressKey(QtHost& host, int key, int modifiers) {
    QTest::sendKeyEvent(QTest::Press, KeyWindow(host), ToToolkitKey(key), QString(), ToToolkitModifiers(modifiers));
}

void ReleaseKey(QtHost& host, int key, int modifiers) {
    QTest::sendKeyEvent(QTest::Release, KeyWindow(host), ToToolkitKey(key), QString(), ToToolkitModifiers(modifiers));
}

void TypeCharacter(QtHost& host, char16_t character) {
    TypeTogether(host, {&character, 1});
}

void TypeTogether(QtHost& host, std::u16string_view text) {
    const QString all = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
    QTest::sendKeyEvent(QTest::Press, KeyWindow(host), Qt::Key_unknown, all, Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Release, KeyWindow(host), Qt::Key_unknown, all, Qt::NoModifier);
}

void TapMiddle(QtHost& host, const Rect& area) {
    const Point middle{(area.Left + area.Right) / 2, (area.Top + area.Bottom) / 2};
    PressMouse(host, middle);
    ReleaseMouse(host, middle);
}

Color ReadPixel(QtHost& host, Point screen) {
    const QImage shown = host.Desktop().grab().toImage();
    const QRect real = host.Parts().Geometry.RealPixels(Rect::FromSize(screen.X, screen.Y, 1, 1));
    const QRgb pixel = shown.pixel(real.center());
    return Color::FromRgb(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

} // namespace tavo::qt
