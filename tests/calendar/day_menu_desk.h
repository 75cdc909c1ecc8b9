// The program at its month calendar, and the words in which the tests of a day's menu work it.
#pragma once

#include "res/resource_ids.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tavo::test {

// The 15th of September 2004 is the Wednesday of the third week.
constexpr int kDayX = 119;
constexpr int kDayY = 123;
constexpr int kEntrySeparator = 4;
constexpr int kEntryMemo = 5;
constexpr int kEntryAddMemo = 6;

class DayMenuTest : public testing::Test {
  protected:
    void Open() {
        ASSERT_TRUE(Program.Start());
        Program.ShowPage(PageNumber::Calendar);
    }

    void Settle() { ASSERT_TRUE(Program.Settle()); }

    void TapDay() { Program.Device.Tap(kDayX, kDayY); }

    void Choose(int command) { Program.Device.ChooseTracked(command); }

    void Check(std::function<void()> look) { Program.Device.Do(std::move(look)); }

    shell::MenuState& Menus() { return Program.Device.Host().State.Menus; }

    const std::vector<MenuItem>& Items() { return Menus().Tracked->Items; }

    // "Holiday: 2", or "(Holiday: 0)" for a greyed one.
    std::vector<std::u16string> Captions() {
        std::vector<std::u16string> captions;
        for (const MenuItem& item : Items()) {
            captions.push_back(item.IsSeparator ? u"-" : item.Enabled ? item.Text : u"(" + item.Text + u")");
        }
        return captions;
    }

    // "33001 Wake up"
    std::vector<std::u16string> EntriesOf(int place) {
        std::vector<std::u16string> entries;
        for (const MenuItem& item : Items()[static_cast<std::size_t>(place)].Children) {
            const std::string id = std::to_string(item.Id);
            entries.push_back(std::u16string(id.begin(), id.end()) + u" " + item.Text);
        }
        return entries;
    }

    Oid GivenItem(std::u16string_view subject, int hour = 9) {
        return Program.GivenAppointment(subject, At(2004, 9, 15, hour), At(2004, 9, 15, hour + 1));
    }

    void Draw() {
        Check([this] {
            ink::InkControl& paper = Program.Device.Host().Papers.Find(Program.Device.See.Control(kInkPaper));
            paper.PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
            paper.PenMove({{120, 60}, ink::kNoPressure, 1050});
            paper.PenUp({{120, 60}, ink::kNoPressure, 1060});
        });
    }

    bool Exists(Oid oid) {
        ComPtr<IAppointment> item;
        return Program.Connect()->GetItemFromOid(oid, item) == Status::Ok;
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> boxes;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            boxes.push_back(box.Caption + u"|" + box.Text);
        }
        return boxes;
    }

    std::vector<std::string> DeletedMemos() {
        std::vector<std::string> names;
        const std::filesystem::path folder = Program.DataFolder() / "Deleted";
        if (std::filesystem::exists(folder)) {
            for (const auto& entry : std::filesystem::directory_iterator(folder)) {
                names.push_back(entry.path().filename().string());
            }
        }
        return names;
    }

    RunningProgram Program{At(2004, 9, 15, 10, 15)};
};

} // namespace tavo::test
