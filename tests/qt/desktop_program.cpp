// Starting, working and looking at the program.
#include "tests/qt/desktop_program.h"

#include "host/qt/written_files.h"

#include "host/ink/ink_drawing.h"
#include "host/outlook/export_reader.h"
#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "host/posix/file_source.h"
#include "host/posix/file_target.h"
#include "host/posix/store_machine.h"
#include "host/qt/chrome_widget.h"
#include "tests/qt/hands.h"
#include "tests/support/store_of.h"

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace tavo::qt {
namespace {

constexpr int kScriptEnded = -32000;
constexpr int kArrowFromRight = 8; // of a list, within its place

HostOptions WithStore(const TemporaryRoot& root, exchange::CalendarImport& files, exchange::CalendarExport& written,
                      backup::ChosenBackup& backup, PrintJob& printed) {
    HostOptions options{root.Open(), ""};
    // No companion lies there: it would serve the device of the person who runs the tests.
    options.ProgramFolder = options.Root.Path();
    const std::string store = options.Root.StorePath();
    options.CreateOutlook = [store](ComPtr<IPOutlookApp>& outlook) {
        outlook = outlook::CreateOutlookApp(posix::SystemMachine(), store, {});
        return Status::Ok;
    };
    options.TakeFiles = [&files](const std::vector<std::string>& paths) { files.Add(paths); };
    options.HaveFiles = [&files] { return files.HasFiles(); };
    ConnectWritten(options, written, backup, printed);
    return options;
}

void Click(QMenu& menu, QAction* action) {
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
}

// Opens the submenus on the way. False when the command is in none.
bool ClickCommand(QMenu& menu, int command) {
    const auto holds = [command](const QAction* action) { return action->data().toInt() == command; };
    for (QAction* action : menu.actions()) {
        if (holds(action)) {
            Click(menu, action);
            return true;
        }
        QMenu* const below = action->menu();
        action->hover(); // what fills a submenu
        if (below != nullptr && std::ranges::any_of(below->actions(), holds)) {
            menu.setActiveAction(action); // opens it at once
            return ClickCommand(*below, command);
        }
    }
    return false;
}

} // namespace

DesktopProgram::DesktopProgram() : DesktopProgram(std::make_shared<TemporaryRoot>()) {}

DesktopProgram::DesktopProgram(std::shared_ptr<TemporaryRoot> root, const std::function<void(DesktopProgram&)>& begin)
    : Root(std::move(root)), Files(
                                 [this] {
                                     const ComPtr<IPOutlookApp>& outlook = State().Store.OutlookApp;
                                     return outlook::MakeImportWriter(outlook ? outlook::StoreOf(*outlook) : nullptr);
                                 },
                                 posix::OpenFileSource),
      Written({[this] {
                   const ComPtr<IPOutlookApp>& outlook = State().Store.OutlookApp;
                   return outlook::MakeExportReader(outlook ? outlook::StoreOf(*outlook) : nullptr);
               },
               posix::OpenFileTarget, nullptr, ink::DrawAsSvg, [] { return std::string("20260503T090000Z"); }}),
      Backup(Root->Open()), Printed([this] {
          const ComPtr<IPOutlookApp>& outlook = State().Store.OutlookApp;
          return outlook ? outlook::StoreOf(*outlook) : nullptr;
      }),
      Host(WithStore(*Root, Files, Written, Backup, Printed)),
      App(std::make_unique<CTavoApp>(Host, CalendarFiles{&Files, &Written, &Host.Dialogs(), &Backup, &Printed})),
      Script([this] { Host.Queue().PostQuitMessage(kScriptEnded); }) {
    if (begin) {
        begin(*this);
    }
    EXPECT_EQ(App->InitInstance(), CTavoApp::Start::Running);
    EXPECT_TRUE(Settle());
}

DesktopProgram::~DesktopProgram() {
    App->ExitInstance();
}

void DesktopProgram::Tap(int x, int y) {
    const Point screen{x + kClientArea.Left, y + kClientArea.Top};
    Do([this, screen] { PressMouse(Host, screen); });
    Do([this, screen] { ReleaseMouse(Host, screen); });
}

void DesktopProgram::Key(int key, int modifiers) {
    Do([this, key, modifiers] { PressKey(Host, key, modifiers); });
    Do([this, key, modifiers] { ReleaseKey(Host, key, modifiers); });
}

void DesktopProgram::Type(std::u16string_view text) {
    for (const char16_t character : text) {
        Do([this, character] { TypeCharacter(Host, character); });
    }
}

void DesktopProgram::TapControl(int id) {
    Do([this, id] {
        ASSERT_TRUE(IsShown(id)) << id;
        TapMiddle(Host, Host.Parts().State.Tree.ScreenBounds(Control(id)));
    });
}

void DesktopProgram::Choose(int id, int index) {
    Do([this, id] {
        ASSERT_TRUE(IsShown(id)) << id;
        const Rect place = Host.Parts().State.Tree.ScreenBounds(Control(id));
        TapMiddle(Host, {place.Right - kArrowFromRight, place.Top, place.Right, place.Bottom});
    });
    Do([this, id, index] {
        auto* box = qobject_cast<QComboBox*>(Widget(id));
        ASSERT_TRUE(box != nullptr && box->view()->isVisible()) << id;
        box->view()->setCurrentIndex(box->model()->index(index, 0));
        QTest::keyClick(box->view(), Qt::Key_Return);
    });
}

void DesktopProgram::ChooseMenu(int index, int command) {
    Do([this, index] { TapMiddle(Host, Host.Parts().Chrome.Menus.MenuPlace(index)); });
    ChooseTracked(command);
}

void DesktopProgram::ChooseTracked(int command) {
    Do([this, command] {
        QMenu* menu = Host.OpenMenu().Current();
        ASSERT_NE(menu, nullptr);
        ASSERT_TRUE(ClickCommand(*menu, command)) << command;
    });
}

void DesktopProgram::AnswerBox(int answer) {
    Do([this, answer] {
        for (const PaintedItem& item : Host.Box().Items()) {
            if (Host.Box().isVisible() && item.Role == PaintedRole::Button && item.Id == answer) {
                TapMiddle(Host, Rect(item.Bounds));
                return;
            }
        }
        ADD_FAILURE() << "no message box with the button " << answer;
    });
}

void DesktopProgram::Pass(std::chrono::milliseconds time) {
    Do([this, time] { Script.Pass(time); });
}

bool DesktopProgram::Settle() {
    bool done = false;
    Do([&] {
        done = true;
        Host.Queue().PostMessageW({}); // wakes the program, which sees the flag
    });
    CMessagePump& pump = App->MessagePump();
    return pump.RunUntil(done) && !pump.HasQuit();
}

WindowHandle DesktopProgram::Control(int id) {
    const shell::WindowTree& tree = Host.Parts().State.Tree;
    WindowHandle hidden = WindowHandle::None;
    for (const WindowHandle window : tree.Subtree(tree.Top())) {
        const shell::ControlState* control = tree.FindControl(window);
        if (control != nullptr && control->Id == id) {
            if (tree.IsVisible(window)) {
                return window;
            }
            hidden = window;
        }
    }
    return hidden;
}

QWidget* DesktopProgram::Widget(int id) {
    Host.UpdateWidgets();
    ControlView* view = Host.Views().FindControl(Control(id));
    return view == nullptr ? nullptr : &view->Widget();
}

bool DesktopProgram::IsShown(int id) {
    const QWidget* widget = Widget(id);
    return widget != nullptr && widget->isVisible();
}

std::u16string DesktopProgram::Caption() {
    Host.UpdateWidgets();
    return Host.Desktop().Navigation().Title().toStdU16String();
}

bool DesktopProgram::IsDialogOpen() {
    const shell::WindowTree& tree = Host.Parts().State.Tree;
    const shell::WindowRecord* top = tree.Find(tree.Top());
    return top != nullptr && top->Kind == WindowKind::Dialog;
}

std::u16string DesktopProgram::NameOf(PaintedRole role, int id) {
    const shell::WindowTree& tree = Host.Parts().State.Tree;
    EXPECT_NE(Host.Views().FindPainted(tree.Top()), nullptr);
    for (const WindowHandle window : tree.Subtree(tree.Top())) {
        const PaintedWidget* painted = tree.IsVisible(window) ? Host.Views().FindPainted(window) : nullptr;
        for (const PaintedItem& item : painted != nullptr ? painted->Items() : std::vector<PaintedItem>()) {
            if (item.Role == role && item.Id == id) {
                return item.Name;
            }
        }
    }
    return {};
}

std::u16string DesktopProgram::BoxText() {
    if (Host.Box().isVisible()) {
        for (const PaintedItem& item : Host.Box().Items()) {
            if (item.Role == PaintedRole::Text) {
                return item.Name;
            }
        }
    }
    return {};
}

} // namespace tavo::qt
