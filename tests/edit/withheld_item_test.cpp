// Items of which the store gives only a part: nothing of them is written over.
#include "tests/edit/edit_desk.h"
#include "tests/support/appointment_probe.h"
#include "tests/support/outlook_probe.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

class WithheldItem : public testing::Test {
  protected:
    WithheldItem() {
        EXPECT_EQ(Real->GetItemFromOid(Item, RealItem), Status::Ok);
        Probe.emplace(*RealItem);
        Desk.State.Store.OutlookApp = Store.Share();
    }

    ~WithheldItem() override { Desk.State.Store.OutlookApp = Real; }

    Oid GivenTalk() {
        const Oid oid = Desk.GivenSeries(u"Talk", At(2026, 11, 23, 9, 0), At(2026, 11, 23, 10, 0), kRecursWeekly);
        ComPtr<IAppointment> item;
        EXPECT_EQ(Desk.State.Store.OutlookApp->GetItemFromOid(oid, item), Status::Ok);
        EXPECT_EQ(item->put_Location(u"Room 4"), Status::Ok);
        EXPECT_EQ(item->Save(), Status::Ok);
        return oid;
    }

    // OK, and the answer to its message.
    void Refuse() {
        Desk.Ok();
        Desk.Check([this] {
            EXPECT_EQ(Desk.Messages().back(),
                      u"Tavo Calendar|Cannot save. Please check the Start/End date and Recurrence pattern.!");
        });
        Desk.Device.AnswerBox(IDOK);
        Desk.Check([this] {
            EXPECT_EQ(Desk.Read(Item).Subject, u"Talk");
            EXPECT_EQ(Desk.Read(Item).Location, u"Room 4");
        });
    }

    EditDesk Desk{At(2026, 11, 21, 9, 47)};
    const Oid Item = GivenTalk();
    const ComPtr<IPOutlookApp> Real = Desk.State.Store.OutlookApp;
    const AppointmentData Record = Desk.Load(Item);
    ComPtr<IAppointment> RealItem;
    std::optional<AppointmentProbe> Probe;
    OutlookProbe Store{Real};
};

TEST_F(WithheldItem, IsSavedOnceItsHiddenPropertiesCanBeReadAgain) {
    Desk.Subject(u"Lecture");
    Desk.Check([this] { Store.ItemResult = Status::Fail; });
    Refuse();
    Desk.Check([this] { Store.ItemResult = Status::Ok; });
    Desk.Ok();
    EXPECT_EQ(Desk.Run(kModeAppointment, Record), IDOK);
    EXPECT_EQ(Desk.Read(Item).Subject, u"Lecture");
    EXPECT_EQ(Desk.Read(Item).Location, u"Room 4");
}

TEST_F(WithheldItem, IsNotSavedWithoutItsLocation) {
    Store.Item = &*Probe;
    Probe->LocationResult = Status::Corrupt;
    Desk.Subject(u"Lecture");
    Refuse();
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAppointment, Record), IDCANCEL);
}

TEST_F(WithheldItem, IsNotSavedWithoutItsPattern) {
    Store.Item = &*Probe;
    Probe->PatternResult = Status::Corrupt;
    Desk.ChooseRecurrence(kChoiceMonthly);
    Refuse();
    Desk.Cancel();
    EXPECT_EQ(Desk.Run(kModeAppointment, Record), IDCANCEL);
}

// As it is when its wizard is cancelled.
TEST_F(WithheldItem, StaysAsItIsWhenItCannotBeTakenAnew) {
    Desk.Subject(u"Lecture");
    Desk.ChooseRecurrence(kChoiceCustom);
    Desk.Check([this] { Store.ItemResult = Status::Fail; });
    Desk.TapShown(IDCANCEL);
    Desk.Check([this] { Store.ItemResult = Status::Ok; });
    Desk.Ok();
    EXPECT_EQ(Desk.Run(kModeAppointment, Record), IDOK);
    EXPECT_EQ(Desk.Read(Item).Subject, u"Lecture");
    EXPECT_EQ(Desk.ReadPattern(Item).Type, kRecursWeekly);
}

} // namespace
} // namespace tavo::test
