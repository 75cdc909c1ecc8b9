// Finding items by their texts, as one types.
#include "app/found_list.h"
#include "res/resource_ids.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/running_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char16_t* kAsk = u"Words of a subject, place or note";

class FindDialog : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(Program.Start());
        Program.GivenAppointment(u"Dentist", At(2004, 11, 20, 15, 0), At(2004, 11, 20, 16, 0));
        Program.GivenAppointment(u"Dinner", At(2004, 10, 1, 19, 30), At(2004, 10, 1, 22, 0));
        Program.GivenAppointment(u"Swim", At(2005, 3, 7, 7, 0), At(2005, 3, 7, 8, 0));
    }

    void Open() { Program.Device.Key('F', kModifierControl); }

    void Search(std::u16string_view text) {
        Open();
        Program.Device.Type(text);
    }

    std::vector<std::u16string> Rows() {
        std::vector<std::u16string> rows;
        for (const PaintedItem& item : Program.Device.See.Items()) {
            if (item.Role == PaintedRole::Row) {
                rows.push_back((item.Selected ? u"> " : u"") + item.Name);
            }
        }
        return rows;
    }

    RunningProgram Program; // 3 November 2004
    ComPtr<IPOutlookApp> Swapped;
};

TEST_F(FindDialog, AsksFirstAndShowsWhatIsFoundInOrderOfTheStarts) {
    Open();
    Program.Device.Do([&] {
        EXPECT_EQ(Program.Device.See.Caption(), u"Find");
        EXPECT_TRUE(Program.Device.See.ShowsText(kAsk));
        EXPECT_THAT(Rows(), IsEmpty());
    });
    Program.Device.Type(u"D");
    Program.Device.Do([&] {
        EXPECT_THAT(Rows(), ElementsAre(u"Dinner, 2004.10.01(Fri) PM 7:30", u"> Dentist, 2004.11.20(Sat) PM 3:00"));
        EXPECT_TRUE(Program.Device.See.ShowsText(u"2 found"));
    });
    Program.Device.Type(u"i");
    Program.Device.Do([&] {
        EXPECT_THAT(Rows(), ElementsAre(u"> Dinner, 2004.10.01(Fri) PM 7:30"));
        EXPECT_TRUE(Program.Device.See.ShowsText(u"1 found"));
    });
    Program.Device.Type(u"x");
    Program.Device.Do([&] {
        EXPECT_THAT(Rows(), IsEmpty());
        EXPECT_TRUE(Program.Device.See.ShowsText(u"Nothing was found"));
    });
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
}

TEST_F(FindDialog, EnterGoesToTheDayOnTheCalendarPage) {
    for (int page = 0; page < 4; ++page) {
        Program.ShowPage(page);
        Search(u"swim");
        Program.Device.Key(VK_RETURN);
        ASSERT_TRUE(Program.Settle());
        EXPECT_FALSE(Program.Device.See.IsDialogOpen());
        EXPECT_EQ(Program.State().CurrentPage, PageNumber::Calendar);
        EXPECT_EQ(Program.Header(), u"Mon, Mar, 07, 2005");
        EXPECT_EQ(Program.SelectedCell(), 1 * 7 + 1);
        Program.ShowPage(PageNumber::Calendar);
        Program.Device.Key('G', kModifierControl);
        Program.Device.PickDate(kGoToDateDay, 2004, 11, 3);
        Program.Device.PressOk();
        ASSERT_TRUE(Program.Settle());
    }
}

TEST_F(FindDialog, ATapOnARowGoesThereToo) {
    Search(u"d");
    Program.Device.TapItem(PaintedRole::Row, u"Dinner, 2004.10.01(Fri) PM 7:30");
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Header(), u"Fri, Oct, 01, 2004");
}

TEST_F(FindDialog, KeysMoveTheSelectionWhileTheTextIsTyped) {
    Search(u"d");
    Program.Device.Key(VK_UP);
    Program.Device.Key(VK_UP);
    Program.Device.Key(VK_RETURN);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Header(), u"Fri, Oct, 01, 2004");
    Search(u"d");
    Program.Device.Key(VK_PRIOR);
    Program.Device.Key(VK_NEXT);
    Program.Device.Key(VK_RETURN);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Header(), u"Sat, Nov, 20, 2004");
}

TEST_F(FindDialog, WithNothingFoundEnterStaysAndEscapeLeaves) {
    Search(u"xyz");
    Program.Device.Key(VK_RETURN);
    Program.Device.Do([&] { EXPECT_TRUE(Program.Device.See.IsDialogOpen()); });
    Program.Device.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
    EXPECT_FALSE(Program.Device.See.IsDialogOpen());
    EXPECT_EQ(Program.State().CurrentPage, PageNumber::Clock);
}

TEST_F(FindDialog, ManyAreFoundInParts) {
    constexpr int many = 4500; // more than one part
    IPOutlookApp& outlook = *Program.State().Store.OutlookApp;
    ASSERT_EQ(outlook.Begin(u"Many"), Status::Ok);
    for (int count = 0; count < many; ++count) {
        ComPtr<IAppointment> item;
        ASSERT_EQ(outlook.CreateItem(kItemAppointment, item), Status::Ok);
        ASSERT_EQ(item->put_Subject(count == 0 ? u"Needle" : u"Hay"), Status::Ok);
        ASSERT_EQ(item->put_Start(38322), Status::Ok); // 1 December 2004
        ASSERT_EQ(item->Save(), Status::Ok);
    }
    ASSERT_EQ(outlook.End(), Status::Ok);
    Search(u"needle");
    Program.Device.Do([&] { EXPECT_THAT(Rows(), ElementsAre(u"> Needle, 2004.12.01(Wed) AM 12:00")); });
    Program.Device.TypeInto(kFindText, u"hay");
    Program.Device.Do([&] {
        EXPECT_EQ(Rows().size(), static_cast<std::size_t>(CFoundList::kVisibleRows));
        EXPECT_TRUE(Program.Device.See.ShowsText(u"More than 500 found: type more"));
    });
    Program.Device.Scroll(kFindScrollBar, SB_PAGEDOWN);
    Program.Device.Wheel(100, 100, -1);
    Program.Device.Do([&] {
        const std::vector<PaintedItem> items = Program.Device.See.Items();
        const auto first = std::find_if(items.begin(), items.end(),
                                        [](const PaintedItem& item) { return item.Role == PaintedRole::Row; });
        ASSERT_NE(first, items.end());
        EXPECT_EQ(first->Id, 6);
    });
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
}

TEST_F(FindDialog, AStoreThatCannotBeReadIsTold) {
    OutlookProbe probe; // finds nothing and says so
    Open();
    Program.Device.Do([&] {
        probe.AddRef();
        std::swap(Program.State().Store.OutlookApp, Swapped);
        Program.State().Store.OutlookApp = ComPtr<IPOutlookApp>::Adopt(&probe);
    });
    Program.Device.Type(u"d");
    Program.Device.Do([&] {
        EXPECT_TRUE(Program.Device.See.ShowsText(u"The calendar could not be read"));
        std::swap(Program.State().Store.OutlookApp, Swapped);
        Swapped.Reset();
    });
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
}

TEST_F(FindDialog, APlaceIsShownAndASeriesGoesOn) {
    ComPtr<IAppointment> item;
    ComPtr<IRecurrencePattern> pattern;
    ASSERT_EQ(Program.State().Store.OutlookApp->GetItemFromOid(1, item), Status::Ok);
    ASSERT_EQ(item->put_Location(u"Main\nstreet"), Status::Ok);
    ASSERT_EQ(item->GetRecurrencePattern(pattern), Status::Ok);
    ASSERT_EQ(pattern->put_NoEndDate(true), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    Search(u"street");
    Program.Device.Do(
        [&] { EXPECT_THAT(Rows(), ElementsAre(u"> Dentist, 2004.11.20(Sat) PM 3:00 ..., Main street")); });
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
}

class GoToDate : public FindDialog {};

TEST_F(GoToDate, BeginsWithTodayOrTheSelectedDayAndShowsWhatIsPicked) {
    Program.Device.ChooseMenu(u"Tools", kCommandGoToDate);
    Program.Device.Do([&] { EXPECT_EQ(Program.Device.See.Caption(), u"Go to date"); });
    Program.Device.Key(VK_RETURN);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Header(), u"Wed, Nov, 03, 2004");
    Program.Device.Key('G', kModifierControl);
    Program.Device.PickDate(kGoToDateDay, 2024, 2, 29);
    Program.Device.PressOk();
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Header(), u"Thu, Feb, 29, 2024");
    Program.Device.Key('G', kModifierControl); // and again, unchanged
    Program.Device.PressOk();
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.Header(), u"Thu, Feb, 29, 2024");
}

TEST_F(GoToDate, ClosingItGoesNowhere) {
    Program.Device.Key('G', kModifierControl);
    Program.Device.PickDate(kGoToDateDay, 2024, 2, 29);
    Program.Device.PressClose();
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.State().CurrentPage, PageNumber::Clock);
    Program.ShowPage(PageNumber::Calendar);
    EXPECT_EQ(Program.Header(), u"Wed, Nov, 03, 2004");
}

} // namespace
} // namespace tavo::test
