// A pen on the ink control.
#include "tests/conformance/conformance_test.h"

#include <gmock/gmock.h>

namespace tavo::conformance {

namespace {

using ::testing::IsEmpty;
using ::testing::Not;

class InkConformance : public ConformanceTest {
  protected:
    InkConformance() {
        OpenDialogOnTap();
        // Large enough to write on.
        Steps.Do([&] { Host.Windows().MoveWindow(Paper(), {0, 0, 240, 200}); });
    }

    WindowHandle Paper() const { return DialogItem(kPaper); }

    int Send(MessageNumber number, int first = 0, int second = 0) {
        return Host.Ink().SendMessageW(Paper(), number, first, second);
    }

    // As a step each: the editor's two states.
    void Write() {
        Steps.Do([&] {
            Send(kInkSetPageStyle, kInkStyleRuled);
            Send(kInkSetPenMode, kInkPenDraws);
            Send(kInkSetView, kInkViewWriting);
        });
    }

    void Choose() {
        Steps.Do([&] {
            Send(kInkSetPageStyle, kInkStyleNone);
            Send(kInkSetPenMode, kInkPenSelects);
            Send(kInkSetView, kInkViewTyping);
        });
    }

    // In pixels of the paper, which begins below the navigation bar.
    void Drag(Point from, Point to) {
        const auto onScreen = [](Point place) { return Point{place.X, place.Y + kClientArea.Top}; };
        Steps.Do([=, this] { Driver->PressStylus(onScreen(from)); });
        for (int part = 1; part <= 4; ++part) {
            const Point place{from.X + (to.X - from.X) * part / 4, from.Y + (to.Y - from.Y) * part / 4};
            Steps.Do([=, this] { Driver->MoveStylus(onScreen(place)); });
        }
        Steps.Do([=, this] { Driver->ReleaseStylus(onScreen(to)); });
    }

    void Finish() {
        Steps.Do([&] { End(IDOK); });
        ASSERT_TRUE(Steps.Finish(Pump));
    }
};

TEST_F(InkConformance, ThePenLeavesInkThatIsGivenBack) {
    std::vector<std::uint8_t> bytes;
    Write();
    Steps.Do([&] { EXPECT_EQ(Send(kInkGetDataLength), 0); });
    Drag({20, 20}, {120, 60});
    Steps.Do([&] {
        bytes = Host.Ink().GetData(Paper());
        EXPECT_THAT(bytes, Not(IsEmpty()));
        EXPECT_EQ(Send(kInkGetDataLength), static_cast<int>(bytes.size()));
        EXPECT_TRUE(Host.Ink().SetData(Paper(), {}));
        EXPECT_EQ(Send(kInkGetDataLength), 0);
        EXPECT_TRUE(Host.Ink().SetData(Paper(), bytes));
        EXPECT_EQ(Host.Ink().GetData(Paper()), bytes);
    });
    Finish();
}

TEST_F(InkConformance, InReadingThePenChoosesAndDrawsNothing) {
    std::vector<std::uint8_t> bytes;
    Write();
    Drag({20, 20}, {120, 20});
    Steps.Do([&] { bytes = Host.Ink().GetData(Paper()); });
    Choose();
    Steps.Do([&] { EXPECT_EQ(Send(EM_GETSEL), 0); });
    Drag({10, 10}, {130, 40});
    Steps.Do([&] {
        EXPECT_NE(Send(EM_GETSEL), 0);
        EXPECT_EQ(Host.Ink().GetData(Paper()), bytes);
    });
    Drag({150, 100}, {170, 120});
    Steps.Do([&] { EXPECT_EQ(Send(EM_GETSEL), 0); });
    Finish();
}

TEST_F(InkConformance, MostOfAStrokeMustLieInside) {
    Write();
    Drag({20, 20}, {120, 20});
    Choose();
    Drag({10, 10}, {65, 40});
    Steps.Do([&] { EXPECT_EQ(Send(EM_GETSEL), 0); });
    Drag({10, 10}, {75, 40});
    Steps.Do([&] { EXPECT_NE(Send(EM_GETSEL), 0); });
    Finish();
}

TEST_F(InkConformance, EverythingIsTakenBackAndDoneAgain) {
    std::vector<std::uint8_t> two;
    Write();
    Drag({20, 20}, {120, 20});
    Drag({20, 60}, {120, 60});
    Steps.Do([&] {
        two = Host.Ink().GetData(Paper());
        EXPECT_NE(Send(EM_CANUNDO), 0);
        EXPECT_EQ(Send(kInkCanRedo), 0);
        Send(kInkUndo);
        EXPECT_LT(Host.Ink().GetData(Paper()).size(), two.size());
        Send(kInkUndo);
        EXPECT_EQ(Send(EM_CANUNDO), 0);
        EXPECT_THAT(Host.Ink().GetData(Paper()), IsEmpty());
        Send(kInkRedo);
        Send(kInkRedo);
        EXPECT_EQ(Host.Ink().GetData(Paper()), two);
        EXPECT_EQ(Send(kInkCanRedo), 0);
    });
    Finish();
}

TEST_F(InkConformance, CutCopyPasteAndClearActOnTheSelection) {
    Write();
    Drag({20, 20}, {120, 20});
    Steps.Do([&] {
        const int one = Send(kInkGetDataLength);
        EXPECT_EQ(Send(kInkCanPaste), 0);
        Send(WM_CUT);
        EXPECT_EQ(Send(kInkGetDataLength), one); // nothing was selected
        Send(EM_SETSEL, 0, -1);
        EXPECT_NE(Send(EM_GETSEL), 0);
        Send(WM_COPY);
        EXPECT_NE(Send(kInkCanPaste), 0);
        Send(WM_CUT);
        EXPECT_EQ(Send(kInkGetDataLength), 0);
        Send(WM_PASTE);
        Send(WM_PASTE);
        EXPECT_GT(Send(kInkGetDataLength), one);
        Send(EM_SETSEL, 0, -1);
        Send(WM_CLEAR);
        EXPECT_EQ(Send(kInkGetDataLength), 0);
    });
    Finish();
}

TEST_F(InkConformance, ForeignBytesStayUntilSomebodyDraws) {
    const std::vector<std::uint8_t> foreign{'f', 'o', 'r', 'e', 'i', 'g', 'n'};
    Write();
    Steps.Do([&] {
        EXPECT_FALSE(Host.Ink().SetData(Paper(), foreign));
        EXPECT_EQ(Host.Ink().GetData(Paper()), foreign);
    });
    Drag({20, 20}, {120, 20});
    Steps.Do([&] {
        EXPECT_THAT(Host.Ink().GetData(Paper()), Not(IsEmpty()));
        EXPECT_NE(Host.Ink().GetData(Paper()), foreign);
    });
    Finish();
}

TEST_F(InkConformance, TheStateIsKeptAndUnknownNumbersAnswerNothing) {
    Write();
    Steps.Do([&] {
        EXPECT_EQ(Send(kInkGetPageStyle), kInkStyleRuled);
        EXPECT_EQ(Send(kInkGetView), kInkViewWriting);
        EXPECT_EQ(Send(WM_USER + 777), 0);
    });
    Finish();
}

TEST_F(InkConformance, TheRowOfPensLiesBelowThePaper) {
    std::vector<std::uint8_t> before;
    Write();
    Steps.Do([&] {
        Send(kInkShowRecorderBar, 1);
        EXPECT_EQ(Host.Windows().GetClientRect(Paper()).Bottom, 224); // it grew by the row
    });
    Drag({20, 212}, {180, 212}); // on the row: no ink
    Steps.Do([&] {
        EXPECT_EQ(Send(kInkGetDataLength), 0);
        Send(kInkShowRecorderBar, 0);
        EXPECT_EQ(Host.Windows().GetClientRect(Paper()).Bottom, 200);
    });
    Finish();
}

TEST_F(InkConformance, OrdinaryEndsLeaveNothingToRecover) {
    Write();
    Drag({20, 20}, {120, 20});
    Steps.Wait(700);
    Steps.Do([&] { EXPECT_TRUE(Host.Ink().FindRecovered().empty()); }); // its editor is open
    Steps.Do([&] { End(IDOK); });
    Steps.Do([&] { EXPECT_TRUE(Host.Ink().FindRecovered().empty()); });
    ASSERT_TRUE(Steps.Finish(Pump));
}

} // namespace

} // namespace tavo::conformance
