// Bringing the shell's windows to the screen.
#include "host/qt/window_views.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tavo::qt {

namespace {

// By its own text.
bool SaysItsName(ControlKind kind) {
    return kind == ControlKind::CheckBox || kind == ControlKind::RadioButton || kind == ControlKind::PushButton ||
           kind == ControlKind::PictureButton || kind == ControlKind::Ink;
}

// Where no label says it.
QString UsualNameOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::DatePicker:
        return QStringLiteral("Date");
    case ControlKind::TimePicker:
        return QStringLiteral("Time");
    case ControlKind::ScrollBar:
        return QStringLiteral("Scroll bar");
    default:
        return {};
    }
}

} // namespace

WindowViews::WindowViews(Device& device, DesktopWindow& desktop)
    : Shared(device), Desktop(desktop), OwnKeyboard(device,
                                                    [this](WindowHandle control) -> QWidget* {
                                                        Update();
                                                        ControlView* view = FindControl(control);
                                                        return view == nullptr ? nullptr : &view->Widget();
                                                    }),
      Filter(device, OwnKeyboard) {}

WindowViews::~WindowViews() {
    while (!Views.empty()) { // children are made after their parents, and go before them
        Views.erase(std::prev(Views.end()));
    }
}

PaintedWidget* WindowViews::FindPainted(WindowHandle window) {
    const auto found = Views.find(window);
    return found == Views.end() ? nullptr : found->second.Painted.get();
}

ControlView* WindowViews::FindControl(WindowHandle control) {
    const auto found = Views.find(control);
    return found == Views.end() ? nullptr : found->second.Control.get();
}

void WindowViews::Drop(WindowHandle window) {
    ChangedStates.erase(window);
    Views.erase(window);
    PlacesChanged = true;
}

QWidget* WindowViews::ParentFor(const shell::WindowRecord& record) {
    // A dialog lies over everything shown before it, so it is a child of the desktop window whoever opened it.
    PaintedWidget* parent = record.Kind == WindowKind::Dialog ? nullptr : FindPainted(record.Parent);
    return parent == nullptr ? static_cast<QWidget*>(&Desktop) : parent;
}

void WindowViews::UpdatePlace(const shell::WindowRecord& record) {
    if (record.Kind == WindowKind::Frame) {
        return;
    }
    const bool isSeen = Shared.State.Tree.IsVisible(record.Handle);
    const auto known = Views.find(record.Handle);
    if (!isSeen) {
        if (known != Views.end()) {
            View& view = known->second;
            (view.Painted ? view.Painted.get() : &view.Control->Widget())->hide();
        }
        return;
    }
    View& view = known != Views.end() ? known->second : Views[record.Handle];
    if (record.Control) {
        if (!view.Control) {
            view.Control = MakeControlView(Shared, record, ParentFor(record));
            Filter.Watch(record.Handle, view.Control->Widget());
            ChangedStates.insert(record.Handle);
        }
        PlaceControl(record, *view.Control);
        return;
    }
    if (!view.Painted) {
        view.Painted = std::make_unique<PaintedWidget>(Shared, record.Handle, ParentFor(record));
        view.Painted->SetFrameWatch(FrameWatch);
        if (record.Kind == WindowKind::Child) {
            view.Painted->lower(); // beneath the controls of its page
        }
    }
    view.Painted->Place(Shared.State.Tree.ScreenBounds(record.Handle));
    view.Painted->show();
}

void WindowViews::PlaceControl(const shell::WindowRecord& record, ControlView& view) {
    QWidget& widget = view.Widget();
    QFont font = widget.font();
    constexpr double pixelsPerPoint = 96.0 / 72.0;
    font.setPixelSize(Shared.Geometry.Length(record.Control->FontPoints * pixelsPerPoint));
    widget.setFont(font);
    QRect place = Shared.Geometry.ToolkitPixels(Shared.State.Tree.ScreenBounds(record.Handle));
    place.translate(-widget.parentWidget()->mapTo(&Desktop, QPoint()));
    widget.setGeometry(place);
    widget.setEnabled(record.Enabled);
    widget.show();
}

void WindowViews::StackDialogs() {
    std::vector<std::pair<std::uint64_t, PaintedWidget*>> dialogs;
    for (const auto& [handle, view] : Views) {
        const shell::WindowRecord* record = Shared.State.Tree.Find(handle);
        if (record != nullptr && record->Kind == WindowKind::Dialog && view.Painted) {
            dialogs.emplace_back(record->ShownOrder, view.Painted.get());
        }
    }
    std::sort(dialogs.begin(), dialogs.end());
    for (const auto& [order, dialog] : dialogs) {
        dialog->raise();
    }
}

void WindowViews::MoveAll() {
    PlacesChanged = true;
    for (const auto& [handle, view] : Views) {
        if (view.Control) {
            ChangedStates.insert(handle); // its parts are measured anew
        }
    }
    Update();
}

void WindowViews::UpdateFocus() {
    if (!Shared.State.Menus.Boxes.empty()) {
        return; // the keys belong to the message box
    }
    ControlView* view = FindControl(Shared.State.Focus);
    QWidget* wanted = view == nullptr ? static_cast<QWidget*>(&Desktop) : &view->Widget();
    if (!wanted->hasFocus()) {
        wanted->setFocus(Qt::OtherFocusReason);
    }
}

// To assistive technology a control is called what the label before it says.
void WindowViews::NameByLabel(const shell::WindowRecord& changed) {
    QString label;
    for (const WindowHandle child : Shared.State.Tree.ChildrenOf(changed.Parent)) {
        const shell::WindowRecord* record = Shared.State.Tree.Find(child);
        if (record == nullptr || !record->Control) {
            continue;
        }
        if (record->Control->Kind == ControlKind::Label) {
            label = QString::fromStdU16String(record->Text).remove(QLatin1Char(':')).trimmed();
            if (label == QLatin1String("Static")) { // a place, not a name
                label.clear();
            }
        } else if (ControlView* view = FindControl(child); view != nullptr && !SaysItsName(record->Control->Kind)) {
            const QString name = label.isEmpty() ? UsualNameOf(record->Control->Kind) : label;
            if (view->Widget().accessibleName() != name) { // it would be told each time
                view->Widget().setAccessibleName(name);
            }
        }
    }
}

void WindowViews::Update() {
    Filter.SetPaused(true); // what follows is not a person's doing
    if (std::exchange(PlacesChanged, false)) {
        for (const WindowHandle window : Shared.State.Tree.AllParentsFirst()) {
            UpdatePlace(*Shared.State.Tree.Find(window));
        }
        StackDialogs();
        FocusChanged = true;
    }
    for (const WindowHandle control : std::exchange(ChangedStates, {})) {
        const shell::WindowRecord* record = Shared.State.Tree.Find(control);
        if (ControlView* view = FindControl(control); view != nullptr && record != nullptr) {
            view->ShowState(*record);
            NameByLabel(*record);
        }
    }
    if (std::exchange(FocusChanged, false)) {
        UpdateFocus();
    }
    Filter.SetPaused(false);
}

} // namespace tavo::qt
