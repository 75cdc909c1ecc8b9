// A device on which the program finds what an earlier run of it left.
#pragma once

#include "res/resource_ids.h"
#include "tests/outlook/child_process.h"
#include "tests/support/running_program.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>
#include <vector>

namespace tavo::test {

class RecoveryAtStart : public testing::Test {
  protected:
    static std::filesystem::path RecoveryOf(const RunningProgram& program) {
        return program.DataFolder().parent_path().parent_path() / "Recovery";
    }

    static void Die() {
        if (!HasFailure()) { // else it ends in another way
            kill(getpid(), SIGKILL);
        }
    }

    // The program runs on this device in a process of its own, with this script, and is killed at its end.
    void GivenKilled(const std::function<void()>& script) {
        const outlook::test::ChildProcess process([&](auto&) {
            if (Program.Start()) {
                script();
                Program.Device.Do(Die);
                static_cast<void>(Program.Settle());
            }
        });
        ASSERT_EQ(process.Wait(), 128 + SIGKILL);
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> boxes;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            boxes.push_back(box.Caption + u"|" + box.Text);
        }
        return boxes;
    }

    // Starts again on the same device; there is nothing to ask any more.
    void ExpectNothingAskedAgain() {
        const std::size_t asked = Boxes().size();
        Program.Device.PressClose(); // as every ordinary end begins
        EXPECT_TRUE(Program.Settle());
        Program.Stop();
        ASSERT_TRUE(Program.Start());
        EXPECT_EQ(Boxes().size(), asked);
    }

    static void DrawOn(RunningProgram& program) {
        ink::InkControl& paper = program.Device.Host().Papers.Find(program.Device.See.Control(kInkPaper));
        paper.PenDown(ink::PenEnd::Tip, {{20, 60}, ink::kNoPressure, 1000});
        paper.PenMove({{120, 60}, ink::kNoPressure, 1050});
        paper.PenUp({{120, 60}, ink::kNoPressure, 1060});
        program.Device.Host().Papers.SaveRecovery();
    }

    // Of the editor that is open.
    static void OpenMemoRow(RunningProgram& program) {
        for (int stop = 0; stop < 3; ++stop) { // the row before OK and Cancel
            program.Device.Key(VK_TAB, kModifierShift);
        }
        program.Device.Key(VK_SPACE);
    }

    std::vector<std::uint8_t> NoteOf(Oid oid) {
        ComPtr<IAppointment> item;
        std::vector<std::uint8_t> note;
        EXPECT_EQ(Program.Connect()->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_EQ(item->get_BodyInk(note), Status::Ok);
        return note;
    }

    RunningProgram Program{At(2004, 11, 3, 17, 10)};
};

} // namespace tavo::test
