// Working the memo dialogs.
#include "tests/memo/memo_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {

namespace {

headless::DeviceOptions SetAt(headless::DeviceOptions options, const SYSTEMTIME& now) {
    options.Now = now;
    return options;
}

} // namespace

MemoDesk::MemoDesk(const SYSTEMTIME& now) : OwnDevice(SetAt(WithStore(), now)), StoreWords(Device.Host()) {
    const ErrorCode made = Device.Host().Files().CreateDirectoryW(State.DataFolder);
    EXPECT_TRUE(made == ErrorCode::Success || made == ErrorCode::AlreadyExists);
    EXPECT_TRUE(State.Store.OpenStore());
}

MemoDesk::~MemoDesk() {
    State.Store.CloseStore();
}

void MemoDesk::Draw(int y) {
    Device.Do([this, y] {
        const auto at = [y](int step) {
            return ink::PenSample{{20.0 + step * 10, static_cast<double>(y)},
                                  ink::kNoPressure,
                                  static_cast<std::uint32_t>(1000 + step * 5)};
        };
        constexpr int steps = 10;
        Paper().PenDown(ink::PenEnd::Tip, at(0));
        for (int step = 1; step <= steps; ++step) {
            Paper().PenMove(at(step));
        }
        Paper().PenUp(at(steps));
    });
}

const MenuItem* MemoDesk::Item(int command) {
    const shell::MenuBarState* bar = Device.See.MenuBar();
    return bar == nullptr ? nullptr : shell::FindMenuItem(bar->Menus, command);
}

bool MemoDesk::CanChoose(int command) {
    const MenuItem* item = Item(command);
    EXPECT_NE(item, nullptr) << command;
    return item != nullptr && item->Enabled;
}

bool MemoDesk::IsChecked(int command) {
    if (const MenuItem* item = Item(command); item != nullptr) {
        return item->Checked;
    }
    const shell::MenuBarState* bar = Device.See.MenuBar();
    for (const shell::ButtonState& button : bar == nullptr ? std::vector<shell::ButtonState>() : bar->Buttons) {
        if (button.Button.Id == command) {
            return button.Checked;
        }
    }
    ADD_FAILURE() << "no command " << command;
    return false;
}

AppointmentData MemoDesk::Load(Oid oid) {
    AppointmentData record;
    EXPECT_EQ(State.Store.LoadAppointment(oid, record), oid);
    return record;
}

std::vector<std::u16string> MemoDesk::Messages() {
    std::vector<std::u16string> messages;
    for (const MessageBoxDescription& box : Device.Host().Seen.Boxes) {
        messages.push_back(box.Caption + u"|" + box.Text);
    }
    return messages;
}

void MemoDesk::Report() {
    for (const std::string& problem : Device.Problems) {
        ADD_FAILURE() << problem;
    }
}

} // namespace tavo::test
