// From the bottom up.
#include "host/bare/screen_look.h"

#include "host/bare/control_look.h"
#include "host/shell/chrome/chrome.h"

#include <algorithm>
#include <utility>

namespace tavo::bare {

namespace {

constexpr shell::Argb kWhite = 0xFFFFFFFF;

// Pages by when they were shown, dialogs above them likewise, and what lies in each in the order of creation.
std::vector<const shell::WindowRecord*> FindSeen(const shell::WindowTree& tree) {
    std::vector<const shell::WindowRecord*> seen;
    for (const WindowHandle window : tree.AllParentsFirst()) {
        if (tree.IsVisible(window)) {
            seen.push_back(tree.Find(window));
        }
    }
    const auto levelOf = [&](const shell::WindowRecord* window) {
        const shell::WindowRecord& ground = *tree.Find(tree.Ground(window->Handle));
        return std::pair(ground.Kind == WindowKind::Dialog, ground.ShownOrder);
    };
    std::stable_sort(seen.begin(), seen.end(),
                     [&](const auto* one, const auto* other) { return levelOf(one) < levelOf(other); });
    return seen;
}

void PaintWindow(ICanvas& canvas, BareHost& host, PaintedDrawing& drawing, const shell::WindowRecord& window) {
    const Rect area = host.State.Tree.ScreenBounds(window.Handle);
    if (window.Kind != WindowKind::Child) {
        drawing.PaintPieces(canvas, {shell::FillPiece{area, kWhite}});
    }
    if (const PaintedFrame* frame = drawing.FindFrame(window.Handle); frame != nullptr) {
        canvas.Put(*frame->Shown, area);
    }
    if (!window.Control) {
        return;
    }
    if (window.Control->Kind == ControlKind::Ink) {
        ink::InkControl& paper = host.Papers.Find(window.Handle);
        const Rect shown = paper.View().Area();
        drawing.PaintInk(canvas, window.Handle, paper,
                         Rect::FromSize(area.Left + shown.Left, area.Top + shown.Top, shown.Width(), shown.Height()));
    }
    drawing.PaintPieces(canvas, DrawControl(host, window));
}

} // namespace

void PaintScreen(ICanvas& canvas, BareHost& host, PaintedDrawing& drawing, Popup& popup) {
    for (const shell::WindowRecord* window : FindSeen(host.State.Tree)) {
        PaintWindow(canvas, host, drawing, *window);
    }
    shell::Chrome& chrome = host.Chrome();
    drawing.PaintPieces(canvas, chrome.Navigation.Draw());
    drawing.PaintPieces(canvas, chrome.Menus.Draw());
    drawing.PaintPieces(canvas, popup.Draw());
    if (chrome.Box.IsOpen()) {
        drawing.PaintPieces(canvas, chrome.Box.Draw());
    }
}

} // namespace tavo::bare
