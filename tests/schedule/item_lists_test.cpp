// The item lists by themselves: what they do with a record that comes back from the editor.
#include "framework/message_pump.h"
#include "schedule/appointment_item_list.h"
#include "schedule/category_item_list.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using testing::ElementsAre;
using testing::IsEmpty;

// Nobody looks at the lists.
class AbsentOwner final : public IItemListOwner {
  public:
    void OnListScrolled() override {}

    void ScrollListBy(int) override {}

    void TakeListCommand(int) override {}

    void TakeListKey(const Message&) override {}

    WindowHandle MenuOwner() const override { return WindowHandle::None; }
};

class ItemLists : public testing::Test {
  protected:
    ItemLists() {
        EXPECT_TRUE(State.Store.OpenStore());
        State.Store.OutlookApp = Outlook.Share();
        for (const char16_t* subject : {u"One", u"Two", u"Three"}) {
            Oids.push_back(Device.GivenAppointment(subject, At(2004, 11, 3, 9), At(2004, 11, 3, 10)));
        }
    }

    AppointmentData Record(Oid oid) {
        AppointmentData record;
        EXPECT_EQ(State.Store.LoadAppointment(oid, record), oid);
        return record;
    }

    test::TestDevice Device;
    test::OutlookProbe Outlook{Device.Connect()}; // outlives the state that holds it
    CProgramState State{Device.Pump};
    AbsentOwner Owner;
    CCategoryItemList Holidays{Device.Pump, State, Owner, ItemKind::Holiday};
    CAppointmentItemList Appointments{Device.Pump, State, Owner};
    std::vector<Oid> Oids;
};

TEST_F(ItemLists, AnItemThatGotAnotherNumberKeepsItsPlaceInTheCategory) {
    State.Categories.HolidayList.Replace({Oids[0], Oids[1]});
    EXPECT_TRUE(Holidays.AddOrReplace(Record(Oids[2]), false, Oids[0]));
    EXPECT_THAT(State.Categories.HolidayList.All(), ElementsAre(Oids[2], Oids[1]));
}

TEST_F(ItemLists, AnItemThatWasEditedIsNotTaggedAnew) {
    State.Categories.HolidayList.Replace({Oids[0], Oids[1]});
    Outlook.Mirror.Reports.clear();
    EXPECT_TRUE(Holidays.AddOrReplace(Record(Oids[0]), false, Oids[0]));
    EXPECT_THAT(State.Categories.HolidayList.All(), ElementsAre(Oids[0], Oids[1]));
    EXPECT_THAT(Outlook.Mirror.Reports, IsEmpty());
}

TEST_F(ItemLists, AnItemOfNoTagGetsNoneByBeingEdited) {
    EXPECT_TRUE(Holidays.AddOrReplace(Record(Oids[2]), false, Oids[0]));
    EXPECT_THAT(State.Categories.HolidayList.All(), IsEmpty());
}

TEST_F(ItemLists, WithNothingSelectedNothingIsDeleted) {
    State.Categories.HolidayList.Replace({Oids[0]});
    Holidays.Fill();
    EXPECT_FALSE(Holidays.DeleteSelected());
    EXPECT_TRUE(Appointments.Fill(At(2004, 11, 3), At(2004, 11, 3)));
    EXPECT_FALSE(Appointments.DeleteSelected());
    for (const Oid oid : Oids) {
        EXPECT_EQ(Record(oid).Oid, oid);
    }
}

TEST_F(ItemLists, ARowThatIsDeletedIsPaintedAway) {
    WindowDescription frame;
    frame.Kind = WindowKind::Frame;
    frame.Visible = true;
    ASSERT_TRUE(Holidays.CreateOn(Device.Host.Windows().CreateWindowExW(frame), Rect::FromSize(0, 0, 225, 204)));
    State.Categories.HolidayList.Replace({Oids[0], Oids[1]});
    Holidays.Fill();
    Holidays.SelectItem(Record(Oids[0]));
    Rect& invalid = Device.Host.State.Tree.Find(Holidays.Handle())->Invalid;
    invalid = {};
    EXPECT_TRUE(Holidays.DeleteSelected());
    EXPECT_FALSE(invalid.IsEmpty());
}

} // namespace

} // namespace tavo
