// A list of items without a look of its own: its rows, how far it scrolls, and what it says when it is empty.
#include "page/row_list.h"

#include "tests/page/page_on_a_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using testing::ElementsAre;

constexpr RowListLook kLook{{200, 95}, 30, 3, u"Nothing here", Color{0x010203}};

class BareList final : public CRowList {
  public:
    BareList(CMessagePump& pump, CProgramState& state) : CRowList(pump, state, kLook) {}

    void Fill(std::size_t rows, int top = 0) {
        Records.resize(rows);
        TopRow = top;
        Invalidate();
    }

  protected:
    void PaintRow(int row, const Rect& area) override {
        DrawSeparators(area);
        Declare({area, PaintedRole::Row, u"", row});
    }
};

class RowList : public testing::Test {
  protected:
    RowList() {
        EXPECT_TRUE(List.CreateOn(Desk.Frame.Handle(), Rect::FromSize(10, 20, 200, 95)));
        List.Show(ShowCommand::Show);
    }

    const headless::Frame& Painted() {
        EXPECT_TRUE(Desk.Settle());
        return *Desk.Device.Host().Drawn.LastFrame(List.Handle());
    }

    // The rows that are declared, from above.
    std::vector<int> Rows() {
        std::vector<int> rows;
        for (const PaintedItem& item : Painted().Items) {
            rows.push_back(item.Id);
        }
        return rows;
    }

    int MaximumTopOf(std::size_t rows) {
        List.Fill(rows);
        return List.MaximumTop();
    }

    test::ViewDesk Desk;
    BareList List{Desk.Pump, Desk.State};
};

TEST_F(RowList, LiesHiddenInItsPlace) {
    BareList another{Desk.Pump, Desk.State};
    ASSERT_TRUE(another.CreateOn(Desk.Frame.Handle(), Rect::FromSize(10, 20, 200, 95)));
    EXPECT_FALSE(Desk.Device.Host().Windows().IsWindowVisible(another.Handle()));
    EXPECT_EQ(Desk.Device.Host().State.Tree.Find(another.Handle())->Bounds, (Rect{10, 20, 210, 115}));
}

TEST_F(RowList, IsNotMadeInAWindowThatIsNotThere) {
    BareList another{Desk.Pump, Desk.State};
    EXPECT_FALSE(another.CreateOn(WindowHandle::None, Rect::FromSize(10, 20, 200, 95)));
}

TEST_F(RowList, SaysInTheMiddleThatItIsEmpty) {
    const headless::Frame& frame = Painted();
    EXPECT_EQ(ToText(frame.Calls), "fill 0,0,200,95 #FFFFFF\n"
                                   "text 0,0,200,95 #030201 format 37 [Arial -13 400] \"Nothing here\"\n");
    EXPECT_THAT(frame.Items, ElementsAre(PaintedItem{{0, 0, 200, 95}, PaintedRole::Text, u"Nothing here"}));
}

TEST_F(RowList, DrawsItsRowsOneBelowTheOtherBetweenBlackLines) {
    Painted();
    List.Fill(2);
    const headless::Frame& frame = Painted();
    EXPECT_EQ(ToText(frame.Calls), "fill 0,0,200,95 #FFFFFF\n"
                                   "line 0,0 to 200,0 pen 1 #000000\n"
                                   "line 0,30 to 200,30 pen 1 #000000\n"
                                   "line 0,30 to 200,30 pen 1 #000000\n"
                                   "line 0,60 to 200,60 pen 1 #000000\n");
    EXPECT_THAT(frame.Items, ElementsAre(PaintedItem{{0, 0, 200, 30}, PaintedRole::Row, u"", 0},
                                         PaintedItem{{0, 30, 200, 60}, PaintedRole::Row, u"", 1}));
}

TEST_F(RowList, ShowsAsManyRowsAsFitFromTheTopOn) {
    List.Fill(5);
    EXPECT_THAT(Rows(), ElementsAre(0, 1, 2));
    List.Fill(5, 1);
    EXPECT_THAT(Rows(), ElementsAre(1, 2, 3));
    List.Fill(5, 4);
    EXPECT_THAT(Rows(), ElementsAre(4));
}

TEST_F(RowList, ScrollsUntilItsLastRowIsShown) {
    EXPECT_EQ(MaximumTopOf(5), 2);
    EXPECT_EQ(MaximumTopOf(4), 1);
    EXPECT_EQ(MaximumTopOf(3), 0);
    EXPECT_EQ(MaximumTopOf(0), 0);
}

} // namespace

} // namespace tavo
