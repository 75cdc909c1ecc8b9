// Starting the program, and small steps that many tests share.
#include "tests/support/running_program.h"

#include "tests/support/host_probe.h"
#include "tests/support/outlook_probe.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <utility>

namespace tavo::test {

namespace {

constexpr int kTabRow = 250; // a line of the page bar
constexpr int kTabWidth = 60;
constexpr int kColumns = 7;

headless::DeviceOptions At(headless::DeviceOptions options, const SYSTEMTIME& now) {
    options.Now = now;
    return options;
}

} // namespace

RunningProgram::RunningProgram(const SYSTEMTIME& now, headless::DeviceOptions options)
    : OwnDevice(At(std::move(options), now)), StoreWords(Device.Host()), Root(Device.Host().Root.Path()) {}

RunningProgram::~RunningProgram() {
    Stop();
}

void RunningProgram::WriteFile(std::string_view name, std::string_view bytes) {
    std::filesystem::create_directories(DataFolder());
    std::ofstream file(DataFolder() / name, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.good());
}

std::optional<std::string> RunningProgram::ReadFile(std::string_view name) const {
    std::ifstream file(DataFolder() / name, std::ios::binary);
    if (!file) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool RunningProgram::Start() {
    App = std::make_unique<CTavoApp>(Device.Host(), Exchange);
    return App->InitInstance() == CTavoApp::Start::Running && Settle();
}

void RunningProgram::Stop() {
    if (App) {
        App->ExitInstance();
        App.reset();
    }
}

void RunningProgram::RunWithItemsLocked() {
    HostProbe host(Device.Host());
    std::optional<OutlookProbe> store; // outlives the program
    host.MakeOutlook = [&](ComPtr<IPOutlookApp>& outlook) {
        ComPtr<IPOutlookApp> real;
        const Status status = Device.Host().CoCreateInstance(real);
        store.emplace(std::move(real)).ItemResult = Status::Locked;
        outlook = store->Share();
        return status;
    };
    CTavoApp app(host);
    ASSERT_EQ(app.InitInstance(), CTavoApp::Start::Running);
    ASSERT_TRUE(Device.Finish(app.MessagePump()));
    app.ExitInstance();
}

void RunningProgram::ShowPage(int tab) {
    Device.Tap(tab * kTabWidth + kTabWidth / 2, kTabRow);
    EXPECT_TRUE(Settle());
}

void RunningProgram::TapAside(int x, int y) {
    Device.Tap(x, y);
    Device.Do([this] {
        if (Device.Host().State.Menus.IsMenuOpen()) {
            Device.ChooseTracked(0);
        }
    });
}

std::u16string RunningProgram::Header() const {
    for (const PaintedItem& item : Device.See.Items()) {
        if (item.Role == PaintedRole::Header) {
            return item.Name;
        }
    }
    return u"(no header)";
}

std::u16string RunningProgram::CellName(int row, int column) const {
    for (const PaintedItem& item : Device.See.Items()) {
        if (item.Role == PaintedRole::Cell && item.Id == row * kColumns + column) {
            return item.Name;
        }
    }
    return u"(no cell)";
}

int RunningProgram::SelectedCell() const {
    for (const PaintedItem& item : Device.See.Items()) {
        if (item.Role == PaintedRole::Cell && item.Selected) {
            return item.Id;
        }
    }
    return -1;
}

headless::Placed RunningProgram::NumberIn(int row, int column) const {
    const Rect cell = Rect::FromSize(4 + 33 * column, 58 + 26 * row, 33, 26);
    headless::Placed number;
    for (const headless::Placed& placed : Device.See.Visible()) {
        if (!placed.Text.empty() && cell.Contains({placed.Area.Left, placed.Area.Top})) {
            number = placed; // the last one drawn lies on top
        }
    }
    return number;
}

} // namespace tavo::test
