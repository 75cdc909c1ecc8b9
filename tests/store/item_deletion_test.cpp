// Deleting an item and its tag as one step, also where the store refuses.
#include "store/item_deletion.h"

#include "store/undo.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;
using test::TestDevice;
using testing::ElementsAre;

class ItemDeletion : public testing::Test {
  protected:
    ItemDeletion() { EXPECT_TRUE(State.Store.OpenStore()); }

    AppointmentData GivenAlarm(std::u16string_view subject) {
        AppointmentData record;
        const Oid oid = Device.GivenAppointment(subject, At(2004, 11, 3, 9), At(2004, 11, 3, 9));
        State.Categories.AlarmList.Append(oid);
        EXPECT_EQ(State.Store.LoadAppointment(oid, record), oid);
        return record;
    }

    std::vector<Oid> Alarms() const {
        const std::span<const Oid> all = State.Categories.AlarmList.All();
        return {all.begin(), all.end()};
    }

    TestDevice Device;
    CProgramState State{Device.Pump};
};

TEST_F(ItemDeletion, TakesTheItemAndItsTag) {
    const AppointmentData one = GivenAlarm(u"One");
    const AppointmentData two = GivenAlarm(u"Two");
    AppointmentData record;
    EXPECT_TRUE(DeleteItem(State, ItemKind::Alarm, one));
    EXPECT_EQ(State.Store.LoadAppointment(one.Oid, record), 0);
    EXPECT_THAT(Alarms(), ElementsAre(two.Oid));
}

TEST_F(ItemDeletion, AnItemThatIsGoneCountsAsDeleted) {
    const AppointmentData gone = GivenAlarm(u"Gone");
    const AppointmentData stays = GivenAlarm(u"Stays");
    Device.Delete(gone.Oid);
    EXPECT_TRUE(DeleteItem(State, ItemKind::Alarm, gone));
    EXPECT_THAT(Alarms(), ElementsAre(stays.Oid));
}

TEST_F(ItemDeletion, WhereTheStoreTakesNoChangesItemAndTagStay) {
    const AppointmentData one = GivenAlarm(u"One");
    const AppointmentData two = GivenAlarm(u"Two");
    ASSERT_EQ(State.Store.OutlookApp->Begin(u"Under way"), Status::Ok); // groups do not nest
    EXPECT_FALSE(DeleteItem(State, ItemKind::Alarm, one));
    ASSERT_EQ(State.Store.OutlookApp->Abandon(), Status::Ok);
    AppointmentData record;
    EXPECT_EQ(State.Store.LoadAppointment(one.Oid, record), one.Oid);
    EXPECT_THAT(Alarms(), ElementsAre(one.Oid, two.Oid));
}

// The store begins a change, and then it fails.
TEST_F(ItemDeletion, WhereTheStoreCannotDeleteItemAndTagStayInTheirPlaces) {
    const AppointmentData one = GivenAlarm(u"One");
    const AppointmentData two = GivenAlarm(u"Two");
    const AppointmentData three = GivenAlarm(u"Three");
    const ComPtr<IPOutlookApp> real = State.Store.OutlookApp;
    for (const bool isFound : {false, true}) {
        for (const ItemKind kind : {ItemKind::Alarm, ItemKind::Appointment}) {
            test::OutlookProbe outlook(real);
            (isFound ? outlook.EndResult : outlook.ItemResult) = Status::Locked;
            State.Store.OutlookApp = outlook.Share();
            EXPECT_FALSE(DeleteItem(State, kind, two));
            State.Store.OutlookApp = real;
            AppointmentData record;
            EXPECT_EQ(State.Store.LoadAppointment(two.Oid, record), two.Oid);
            EXPECT_THAT(Alarms(), ElementsAre(one.Oid, two.Oid, three.Oid));
        }
    }
}

TEST_F(ItemDeletion, AnAppointmentTouchesNoList) {
    const AppointmentData one = GivenAlarm(u"One");
    EXPECT_TRUE(DeleteItem(State, ItemKind::Appointment, one));
    EXPECT_THAT(Alarms(), ElementsAre(one.Oid)); // until it is pruned
}

TEST_F(ItemDeletion, IsNamedByKindOrAsASeries) {
    AppointmentData record;
    record.Subject = u"Yoga";
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record), u"delete of alarm Yoga");
    EXPECT_EQ(NameDeletion(ItemKind::Holiday, record), u"delete of holiday Yoga");
    EXPECT_EQ(NameDeletion(ItemKind::Anniversary, record), u"delete of anniversary Yoga");
    EXPECT_EQ(NameDeletion(ItemKind::Appointment, record), u"delete of appointment Yoga");
    EXPECT_EQ(NameCopy(ItemKind::Holiday, record), u"copy of Yoga to holidays");
    record.IsRecurring = true;
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record), u"delete of series Yoga");
}

TEST_F(ItemDeletion, ANameIsNotCutWithinACharacter) {
    AppointmentData record;
    record.Subject = std::u16string(29, u'x') + u"\U0001F382 cake";
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record), u"delete of alarm " + std::u16string(29, u'x') + u"...");
    const std::u16string lowestPair = u"\U00010000";
    record.Subject = std::u16string(29, u'x') + lowestPair + u"cake";
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record), u"delete of alarm " + std::u16string(29, u'x') + u"...");
    record.Subject = std::u16string(28, u'x') + lowestPair + u"cake";
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record),
              u"delete of alarm " + std::u16string(28, u'x') + lowestPair + u"...");
}

TEST_F(ItemDeletion, ANameShowsThirtyCharactersOfTheSubject) {
    AppointmentData record;
    record.Subject = u"Thirty characters, neither more";
    record.Subject.pop_back();
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record), u"delete of alarm Thirty characters, neither mor");
    record.Subject = u"Thirty characters, neither more";
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record), u"delete of alarm Thirty characters, neither mor...");
    EXPECT_EQ(NameCopy(ItemKind::Alarm, record), u"copy of Thirty characters, neither mor... to alarms");
}

TEST_F(ItemDeletion, ANameIsOneLine) {
    AppointmentData record;
    record.Subject = u"One\r\ntwo\tthree\x1F four!";
    EXPECT_EQ(NameDeletion(ItemKind::Alarm, record), u"delete of alarm One  two three  four!");
}

TEST_F(ItemDeletion, TheStoresOwnNamesFitIntoTheMenu) {
    EXPECT_EQ(DescribeUndo(State), u"Undo");
    EXPECT_FALSE(CanUndo(State));
    EXPECT_FALSE(LongUndo(State).DoNext());
    GivenAlarm(u"One");
    EXPECT_EQ(DescribeUndo(State), u"Undo new appointment");
    EXPECT_TRUE(CanUndo(State));
}

} // namespace

} // namespace tavo
