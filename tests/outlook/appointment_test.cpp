// Properties of an appointment: how they move together, and that Save writes what was put.
#include "tests/outlook/store_fixture.h"

#include <limits>

namespace tavo::outlook::test {

class Appointment : public StoreTest {
  protected:
    static std::string StartOf(IAppointment& item) {
        DATE date = 0;
        EXPECT_EQ(item.get_Start(date), Status::Ok);
        return TextOf(SecondsFromDate(date));
    }

    static std::string EndOf(IAppointment& item) {
        DATE date = 0;
        EXPECT_EQ(item.get_End(date), Status::Ok);
        return TextOf(SecondsFromDate(date));
    }

    // A property that must have been read.
    template <class Value> static const Value& Got(Status status, const Value& value) {
        EXPECT_EQ(status, Status::Ok);
        return value;
    }

    static std::int32_t DurationOf(IAppointment& item) {
        std::int32_t minutes = 0;
        EXPECT_EQ(item.get_Duration(minutes), Status::Ok);
        return minutes;
    }
};

TEST_F(Appointment, SettingTheStartKeepsTheDuration) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:30");
    ASSERT_EQ(item->put_Start(DateAt("2026-06-01 08:00")), Status::Ok);
    EXPECT_EQ(EndOf(*item), "2026-06-01 09:30");
    EXPECT_EQ(DurationOf(*item), 90);
}

TEST_F(Appointment, SettingTheEndRecomputesTheDuration) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:30");
    ASSERT_EQ(item->put_End(DateAt("2026-05-04 10:45")), Status::Ok);
    EXPECT_EQ(DurationOf(*item), 45);
    EXPECT_EQ(StartOf(*item), "2026-05-04 10:00");
}

TEST_F(Appointment, SettingTheDurationRecomputesTheEnd) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:30");
    ASSERT_EQ(item->put_Duration(20), Status::Ok);
    EXPECT_EQ(EndOf(*item), "2026-05-04 10:20");
}

TEST_F(Appointment, SettersAcceptAnything) {
    const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:30");
    EXPECT_EQ(item->put_Start(-1e300), Status::Ok);
    EXPECT_EQ(item->put_Duration(std::numeric_limits<std::int32_t>::min()), Status::Ok);
    EXPECT_EQ(item->put_BusyStatus(99), Status::Ok);
}

TEST_F(Appointment, EveryPropertySurvivesSavingAndReopening) {
    const auto item = NewAppointment("2026-05-04 10:00:07", "2026-05-04 11:30:08", u"Zähne \U0001F9B7");
    const std::u16string cut = {u'x', static_cast<char16_t>(0xD83E)}; // half a character, as a person's cut leaves it
    ASSERT_EQ(item->put_Location(cut), Status::Ok);
    ASSERT_EQ(item->put_Categories(u"Health, Me"), Status::Ok);
    ASSERT_EQ(item->put_Body(std::u16string(20000, u'b')), Status::Ok);
    ASSERT_EQ(item->put_BodyInk(std::vector<std::uint8_t>{0, 255, 0, 7}), Status::Ok);
    ASSERT_EQ(item->put_AllDayEvent(true), Status::Ok);
    ASSERT_EQ(item->put_BusyStatus(kBusyOutOfOffice), Status::Ok);
    ASSERT_EQ(item->put_Sensitivity(kSensitivityPrivate), Status::Ok);
    ASSERT_EQ(item->put_ReminderSet(true), Status::Ok);
    ASSERT_EQ(item->put_ReminderMinutesBeforeStart(9999 * 1440), Status::Ok);
    ASSERT_EQ(item->put_ReminderOptions(29), Status::Ok);
    ASSERT_EQ(item->put_ReminderSoundFile(u"bell.wav"), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    Oid oid = 0;
    ASSERT_EQ(item->get_Oid(oid), Status::Ok);
    Reopen();
    const auto again = Get(oid);
    std::u16string text;
    std::int32_t number = 0;
    bool flag = false;
    std::vector<std::uint8_t> ink;
    EXPECT_EQ(StartOf(*again), "2026-05-04 10:00:07");
    EXPECT_EQ(EndOf(*again), "2026-05-04 11:30:08");
    EXPECT_EQ(Got(again->get_Subject(text), text), u"Zähne \U0001F9B7");
    EXPECT_EQ(Got(again->get_Location(text), text), cut);
    EXPECT_EQ(Got(again->get_Categories(text), text), u"Health, Me");
    EXPECT_EQ(Got(again->get_Body(text), text), std::u16string(20000, u'b'));
    EXPECT_EQ(Got(again->get_BodyInk(ink), ink), (std::vector<std::uint8_t>{0, 255, 0, 7}));
    EXPECT_EQ(Got(again->get_AllDayEvent(flag), flag), true);
    EXPECT_EQ(Got(again->get_BusyStatus(number), number), kBusyOutOfOffice);
    EXPECT_EQ(Got(again->get_Sensitivity(number), number), kSensitivityPrivate);
    EXPECT_EQ(Got(again->get_ReminderSet(flag), flag), true);
    EXPECT_EQ(Got(again->get_ReminderMinutesBeforeStart(number), number), 9999 * 1440);
    EXPECT_EQ(Got(again->get_ReminderOptions(number), number), 29);
    EXPECT_EQ(Got(again->get_ReminderSoundFile(text), text), u"bell.wav");
    EXPECT_EQ(Got(again->get_IsRecurring(flag), flag), false);
}

TEST_F(Appointment, NothingIsStoredBeforeSave) {
    {
        const auto item = NewAppointment("2026-05-04 10:00", "2026-05-04 11:30");
        Oid oid = -1;
        EXPECT_EQ(Got(item->get_Oid(oid), oid), 0);
    }
    std::int32_t count = -1;
    ASSERT_EQ(Items()->get_Count(count), Status::Ok);
    EXPECT_EQ(count, 0);
}

TEST_F(Appointment, SaveWritesOnlyWhatWasPut) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Old");
    const auto mine = Get(oid);
    const auto other = Get(oid);
    ASSERT_EQ(other->put_Location(u"Room 5"), Status::Ok);
    ASSERT_EQ(other->put_Start(DateAt("2026-05-05 10:00")), Status::Ok);
    ASSERT_EQ(other->Save(), Status::Ok);
    ASSERT_EQ(mine->put_Subject(u"New"), Status::Ok);
    ASSERT_EQ(mine->Save(), Status::Ok);
    const StoredItem item = Read(oid);
    EXPECT_EQ(item.Subject, u"New");
    EXPECT_EQ(item.Location, u"Room 5");
    EXPECT_EQ(TextOf(item.Start), "2026-05-05 10:00");
}

TEST_F(Appointment, AnAllDayItemOfOneDayKeepsStartAndEndOnItsMidnight) {
    const auto item = NewAppointment("2026-05-04 00:00", "2026-05-04 00:00");
    ASSERT_EQ(item->put_AllDayEvent(true), Status::Ok);
    ASSERT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(DurationOf(*item), 0);
    EXPECT_EQ(EndOf(*item), "2026-05-04 00:00");
}

TEST_F(Appointment, OidsArePositiveAndNeverReused) {
    const Oid first = Add("2026-05-04 10:00", "2026-05-04 11:00");
    EXPECT_GT(first, 0);
    ASSERT_EQ(Get(first)->Delete(), Status::Ok);
    const Oid second = Add("2026-05-04 10:00", "2026-05-04 11:00");
    EXPECT_GT(second, first);
    Reopen();
    ASSERT_EQ(Get(second)->Delete(), Status::Ok);
    Reopen();
    EXPECT_GT(Add("2026-05-04 10:00", "2026-05-04 11:00"), second);
}

TEST_F(Appointment, AnOidOfAnAbandonedGroupIsNotGivenAgain) {
    ASSERT_EQ(App->Begin(u"Group"), Status::Ok);
    const Oid lost = Add("2026-05-04 10:00", "2026-05-04 11:00");
    ASSERT_EQ(App->Abandon(), Status::Ok);
    EXPECT_FALSE(Exists(lost));
    EXPECT_GT(Add("2026-05-04 10:00", "2026-05-04 11:00"), lost);
}

TEST_F(Appointment, AMissingItemIsNotFound) {
    ComPtr<IAppointment> item;
    EXPECT_EQ(App->GetItemFromOid(1, item), Status::NotFound);
    EXPECT_EQ(App->GetItemFromOid(0, item), Status::NotFound);
    EXPECT_EQ(App->GetItemFromOid(-5, item), Status::NotFound);
    EXPECT_FALSE(item);
}

TEST_F(Appointment, ObjectsKeepTheStoreOpen) {
    const Oid oid = Add("2026-05-04 10:00", "2026-05-04 11:00", u"Held");
    const auto item = Restrict(u"[Start] = 5/4/2026");
    ComPtr<IAppointment> held;
    ASSERT_EQ(item->Item(1, held), Status::Ok);
    App.Reset();
    Store.reset();
    std::u16string subject;
    EXPECT_EQ(held->get_Subject(subject), Status::Ok);
    EXPECT_EQ(subject, u"Held");
    Oid its = 0;
    EXPECT_EQ(Got(held->get_Oid(its), its), oid);
}

} // namespace tavo::outlook::test
