// From when until when a series repeats.
#include "store/pattern_range.h"

#include "tests/support/appointment_probe.h"
#include "tests/support/outlook_probe.h"
#include "tests/support/test_device.h"

#include <gtest/gtest.h>

namespace tavo {

namespace {

using test::At;

// 3 May 2004 is a Monday, 12 May a Wednesday.
class PatternRanges : public testing::Test {
  protected:
    PatternRanges() { EXPECT_TRUE(Session.OpenStore()); }

    Oid GivenSeries(const test::StoreWords::ArrangePattern& arrange = {}) {
        return Device.GivenSeries(u"Standup", At(2004, 5, 3, 9), At(2004, 5, 3, 10), kRecursDaily, arrange);
    }

    std::optional<PatternRange> Load(Oid oid) { return LoadPatternRange(oid, Session, Device.Host.Locale()); }

    test::TestDevice Device;
    test::OutlookProbe Outlook{Device.Connect()}; // outlives the session that holds it
    OutlookSession Session{Device.Pump};
};

constexpr SYSTEMTIME kFirst{2004, 5, 1, 3, 0, 0, 0, 0};
constexpr SYSTEMTIME kLast{2004, 5, 3, 12, 0, 0, 0, 0};

TEST_F(PatternRanges, AnEndlessSeriesHasAFirstDayOnly) {
    EXPECT_EQ(Load(GivenSeries()), (PatternRange{kFirst, std::nullopt}));
}

TEST_F(PatternRanges, ASeriesThatEndsHasBothDays) {
    const Oid oid = GivenSeries([](IRecurrencePattern& pattern) {
        EXPECT_EQ(pattern.put_NoEndDate(false), Status::Ok);
        EXPECT_EQ(pattern.put_Occurrences(10), Status::Ok);
    });
    EXPECT_EQ(Load(oid), (PatternRange{kFirst, kLast}));
}

TEST_F(PatternRanges, WhatDoesNotRecurHasNone) {
    EXPECT_EQ(Load(Device.GivenAppointment(u"Once", At(2004, 5, 3, 9), At(2004, 5, 3, 10))), std::nullopt);
}

TEST_F(PatternRanges, WhatIsGoneHasNone) {
    const Oid oid = GivenSeries();
    Device.Delete(oid);
    EXPECT_EQ(Load(oid), std::nullopt);
}

TEST_F(PatternRanges, WithoutAStoreThereIsNone) {
    const Oid oid = GivenSeries();
    Session.CloseStore();
    EXPECT_EQ(Load(oid), std::nullopt);
}

TEST_F(PatternRanges, ASeriesWhosePatternCannotBeHadHasNone) {
    const Oid oid = GivenSeries();
    ComPtr<IAppointment> item;
    ASSERT_EQ(Session.OutlookApp->GetItemFromOid(oid, item), Status::Ok);
    test::AppointmentProbe probe(*item);
    probe.PatternResult = Status::Locked;
    Outlook.Item = &probe;
    const ComPtr<IPOutlookApp> real = Session.OutlookApp;
    Session.OutlookApp = Outlook.Share();
    EXPECT_EQ(Load(oid), std::nullopt);
    Session.OutlookApp = real;
}

} // namespace

} // namespace tavo
