// Going back and forth through everything that was done.
#include "tests/ink/control_desk.h"

#include <random>

namespace tavo::ink {
namespace {

class InkUndo : public ControlDesk {};

TEST_F(InkUndo, AThousandStrokesGoAndComeBack) {
    Write();
    std::vector<std::vector<std::uint8_t>> states{Control.GetData()};
    for (int i = 0; i < 1200; ++i) {
        Drag(10 + i % 200, 10 + i % 50, 30 + i % 170, 60);
        if (i % 100 == 0) {
            states.push_back(Control.GetData());
        }
    }
    EXPECT_EQ(Count(), 1200U);
    for (int i = 0; i < 1199; ++i) {
        ASSERT_EQ(Send(EM_CANUNDO), 1);
        Send(kInkUndo);
    }
    EXPECT_EQ(Control.GetData(), states[1]);
    Send(kInkUndo);
    EXPECT_EQ(Send(EM_CANUNDO), 0);
    EXPECT_EQ(Control.GetData(), states[0]);
    for (int i = 0; i < 1101; ++i) {
        Send(kInkRedo);
    }
    EXPECT_EQ(Control.GetData(), states[12]);
    EXPECT_EQ(Send(kInkCanRedo), 1);
}

TEST_F(InkUndo, WhatIsDoneAfterwardsEndsTheRedo) {
    Write();
    Drag(10, 10, 60, 10);
    Drag(10, 30, 60, 30);
    Send(kInkUndo);
    EXPECT_EQ(Send(kInkCanRedo), 1);
    Drag(10, 50, 60, 50);
    EXPECT_EQ(Send(kInkCanRedo), 0);
    Send(kInkRedo);
    EXPECT_EQ(Count(), 2U);
}

TEST_F(InkUndo, ALongHistoryForgetsItsOldestSteps) {
    Write();
    for (std::size_t i = 0; i < kMaxUndoSteps + 5; ++i) {
        Tap(20, 20);
    }
    std::size_t undone = 0;
    for (; Send(EM_CANUNDO) == 1; ++undone) {
        Send(kInkUndo);
    }
    EXPECT_EQ(undone, kMaxUndoSteps);
    EXPECT_EQ(Count(), 5U);
}

// Anything a person can do, in any order, is taken back to every state between, and done again.
TEST_F(InkUndo, EveryKindOfChangeIsTakenBackExactly) {
    std::mt19937 random(7);
    const auto number = [&](int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); };
    std::vector<std::vector<std::uint8_t>> states{Control.GetData()};
    for (int i = 0; i < 400; ++i) {
        const std::uint64_t before = Control.Revision();
        switch (number(6)) {
        case 0:
        case 1:
            Write();
            Drag(number(220), number(240), number(220), number(240));
            break;
        case 2:
            Write();
            Drag(number(220), number(240), number(220), number(240), PenEnd::Eraser);
            break;
        case 3:
            Choose();
            Send(EM_SETSEL, -1, 0);
            Drag(number(100), number(100), 120 + number(100), 120 + number(100));
            Send(WM_CUT);
            break;
        case 4:
            Send(WM_PASTE);
            break;
        default: {
            Choose();
            Send(EM_SETSEL, 0, -1);
            const Box frame = Control.SelectionFrame();
            const ViewPoint at = Control.View().ToControl(frame.Left + 40, frame.Top + 40);
            Drag(at.X, at.Y, at.X + number(40) - 20, at.Y + number(40) - 20);
            break;
        }
        }
        if (Control.Revision() != before && Control.GetData() != states.back()) {
            states.push_back(Control.GetData());
        }
    }
    ASSERT_GT(states.size(), 150U);
    std::size_t at = states.size() - 1;
    while (Send(EM_CANUNDO) == 1) {
        Send(kInkUndo);
        if (Control.GetData() != states[at]) {
            ASSERT_GT(at, 0U);
            --at;
            ASSERT_EQ(Control.GetData(), states[at]);
        }
    }
    EXPECT_EQ(at, 0U);
    while (Send(kInkCanRedo) == 1) {
        Send(kInkRedo);
    }
    EXPECT_EQ(Control.GetData(), states.back());
}

} // namespace
} // namespace tavo::ink
