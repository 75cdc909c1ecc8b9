// The ink control's two states and its bytes.
#include "host/headless/ink_holder.h"

#include <gtest/gtest.h>

namespace tavo::headless {

namespace {

constexpr WindowHandle kPaper{4};
constexpr WindowHandle kOther{5};

TEST(InkHolder, FreshPaperIsEmptyAndReads) {
    InkHolder ink;
    EXPECT_EQ(ink.SendMessageW(kPaper, kInkGetDataLength, 0, 0), 0);
    EXPECT_EQ(ink.SendMessageW(kPaper, kInkGetPageStyle, 0, 0), kInkStyleNone);
    EXPECT_EQ(ink.SendMessageW(kPaper, kInkGetView, 0, 0), kInkViewTyping);
    EXPECT_EQ(ink.Zoom(kPaper), 100);
    EXPECT_TRUE(ink.Calls.empty());
}

TEST(InkHolder, HoldsBytesForEachPaper) {
    InkHolder ink;
    const std::vector<std::uint8_t> bytes{1, 2, 3};
    EXPECT_TRUE(ink.SetData(kPaper, bytes));
    EXPECT_EQ(ink.SendMessageW(kPaper, kInkGetDataLength, 0, 0), 3);
    EXPECT_EQ(ink.GetData(kPaper), bytes);
    EXPECT_TRUE(ink.GetData(kOther).empty());
    ink.Write(kPaper, {9});
    EXPECT_EQ(ink.GetData(kPaper), std::vector<std::uint8_t>{9});
}

TEST(InkHolder, RemembersItsStateAndTheCalls) {
    InkHolder ink;
    ink.SendMessageW(kPaper, kInkSetPageStyle, kInkStyleRuled, 0);
    ink.SendMessageW(kPaper, kInkSetZoom, 0, 150);
    ink.SendMessageW(kPaper, kInkSetPenMode, kInkPenDraws, 0);
    ink.SendMessageW(kPaper, WM_CUT, 0, 0);
    EXPECT_EQ(ink.Zoom(kPaper), 150);
    EXPECT_EQ(ink.PenMode(kPaper), kInkPenDraws);
    ASSERT_EQ(ink.Calls.size(), 4u);
    EXPECT_EQ(ink.Calls[1], (InkCall{kPaper, kInkSetZoom, 0, 150}));
    EXPECT_EQ(ink.Calls[3].Number, WM_CUT);
}

TEST(InkHolder, AnswersAboutEditingAsTold) {
    InkHolder ink;
    EXPECT_EQ(ink.SendMessageW(kPaper, EM_CANUNDO, 0, 0), 0);
    ink.SetAnswer(EM_CANUNDO, 1);
    EXPECT_EQ(ink.SendMessageW(kPaper, EM_CANUNDO, 0, 0), 1);
}

} // namespace

} // namespace tavo::headless
