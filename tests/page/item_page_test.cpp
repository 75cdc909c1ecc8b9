// Looking at an item, and changing or deleting it from there.
#include "page/item_page.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"
#include "tests/page/page_on_a_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace tavo {

namespace {

using test::At;
using testing::ElementsAre;
using testing::IsEmpty;

class BareItemPage final : public CItemPage {
  public:
    BareItemPage(CMessagePump& pump, CProgramState& state, IMainView& view)
        : CItemPage(pump, state, view, kClockPageTemplate, kMenuPage) {}

    using CItemPage::ModifyItem;
    using CItemPage::RequestFor;
    using CItemPage::ViewAndAct;

    std::vector<std::u16string> Edited; // subjects that the edit dialog began with

  protected:
    void RunEditor(EditRequest request) override {
        Edited.push_back(request.Item->Subject);
        CItemPage::RunEditor(std::move(request));
    }
};

class ItemPage : public testing::Test {
  protected:
    ItemPage() {
        EXPECT_TRUE(Page.CreateOn(Desk.Frame.Handle()));
        Page.Show(ShowCommand::Maximize);
        EXPECT_TRUE(Desk.Settle());
        Desk.View.Calls.clear();
        Party = Desk.GivenAppointment(u"Party", At(2004, 11, 3, 20), At(2004, 11, 3, 23));
    }

    AppointmentData Load(Oid oid) {
        AppointmentData record;
        Desk.State.Store.LoadAppointment(oid, record);
        return record;
    }

    void Rename(Oid oid, std::u16string_view subject) {
        ComPtr<IAppointment> item;
        ASSERT_EQ(Desk.Connect()->GetItemFromOid(oid, item), Status::Ok);
        ASSERT_EQ(item->put_Subject(subject), Status::Ok);
        ASSERT_EQ(item->Save(), Status::Ok);
    }

    // Opens the view and lets the script so far run.
    void View() { Page.ViewAndAct(ItemKind::Alarm, Load(Party), TimesOf::Series); }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> texts;
        for (const MessageBoxDescription& box : Desk.Device.Host().Seen.Boxes) {
            texts.push_back(box.Text);
        }
        return texts;
    }

    test::ViewDesk Desk;
    BareItemPage Page{Desk.Pump, Desk.State, Desk.View};
    Oid Party = 0;
};

TEST_F(ItemPage, AViewThatIsClosedChangesNothing) {
    Desk.Device.PressClose();
    View();
    EXPECT_THAT(Page.Edited, IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_THAT(Desk.View.Calls, IsEmpty());
    EXPECT_EQ(Load(Party).Subject, u"Party");
}

TEST_F(ItemPage, ModifyInTheViewOpensTheEditDialogAndTellsTheMainView) {
    Desk.Device.TapItem(PaintedRole::Button, u"Modify");
    Desk.Device.TapControl(IDCANCEL);
    View();
    EXPECT_THAT(Page.Edited, ElementsAre(u"Party"));
    EXPECT_THAT(Desk.View.Calls, ElementsAre("notice"));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ItemPage, TheMainViewIsToldOfWhateverTheEditDialogDid) {
    Desk.Device.TapControl(IDOK);
    Page.ModifyItem(ItemKind::Appointment, Load(Party));
    EXPECT_THAT(Page.Edited, ElementsAre(u"Party"));
    EXPECT_THAT(Desk.View.Calls, ElementsAre("notice"));
}

TEST_F(ItemPage, DeleteInTheViewAsksAndDeletesTheItemAndItsTag) {
    Desk.State.Categories.AlarmList.Append(Party);
    Desk.Device.TapItem(PaintedRole::Button, u"Delete");
    Desk.Device.AnswerBox(IDYES);
    View();
    EXPECT_THAT(Boxes(), ElementsAre(u"Are you sure to delete?"));
    EXPECT_EQ(Load(Party).Oid, 0);
    EXPECT_EQ(Desk.State.Categories.AlarmList.Size(), 0U);
    EXPECT_THAT(Desk.View.Calls, ElementsAre("notice"));
    EXPECT_THAT(Page.Edited, IsEmpty());
}

TEST_F(ItemPage, NoAsAnAnswerDeletesNothing) {
    Desk.Device.TapItem(PaintedRole::Button, u"Delete");
    Desk.Device.AnswerBox(IDNO);
    View();
    EXPECT_EQ(Load(Party).Subject, u"Party");
    EXPECT_THAT(Desk.View.Calls, IsEmpty());
}

TEST_F(ItemPage, ADeletionThatTheStoreRefusesIsTold) {
    ASSERT_EQ(Desk.State.Store.OutlookApp->Begin(u"Under way"), Status::Ok); // groups do not nest
    Desk.Device.TapItem(PaintedRole::Button, u"Delete");
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    View();
    ASSERT_EQ(Desk.State.Store.OutlookApp->Abandon(), Status::Ok);
    EXPECT_THAT(Boxes(), ElementsAre(u"Are you sure to delete?", u"The item could not be deleted."));
    EXPECT_EQ(Load(Party).Subject, u"Party");
    EXPECT_THAT(Desk.View.Calls, ElementsAre("notice"));
}

TEST_F(ItemPage, TheEditDialogBeginsWithTheItemAsItIsWhenTheViewCloses) {
    Desk.Device.Do([this] { Rename(Party, u"Feast"); });
    Desk.Device.TapItem(PaintedRole::Button, u"Modify");
    Desk.Device.TapControl(IDCANCEL);
    View();
    EXPECT_THAT(Page.Edited, ElementsAre(u"Feast"));
}

TEST_F(ItemPage, ARequestForANewItemHasNone) {
    const EditRequest request = Page.RequestFor(ItemKind::Holiday, {});
    EXPECT_EQ(request.Kind, ItemKind::Holiday);
    EXPECT_FALSE(request.Item.has_value());
    EXPECT_EQ(request.Owner, nullptr);
    EXPECT_EQ(request.InkEditor, nullptr);
}

// A record of the fourth of November, whatever the item in the store has become meanwhile.
class ReadingAnew : public ItemPage {
  protected:
    ReadingAnew() { Yoga = Desk.GivenSeries(u"Yoga", At(2004, 11, 1, 18), At(2004, 11, 1, 19), kRecursDaily); }

    AppointmentData Fourth(Oid oid) {
        AppointmentData record = Load(oid);
        record.Start = At(2004, 11, 4, 18);
        record.End = At(2004, 11, 4, 19);
        record.Subject = u"As it was";
        return record;
    }

    Oid Yoga = 0;
};

TEST_F(ReadingAnew, AnOccurrenceOfASeriesKeepsItsTimes) {
    const AppointmentData now = ReadAnew(Desk.State.Store, Fourth(Yoga), TimesOf::Occurrence);
    EXPECT_EQ(now.Subject, u"Yoga");
    EXPECT_EQ(now.Start, At(2004, 11, 4, 18));
    EXPECT_EQ(now.End, At(2004, 11, 4, 19));
}

TEST_F(ReadingAnew, ASeriesHasItsOwnTimes) {
    const AppointmentData now = ReadAnew(Desk.State.Store, Fourth(Yoga), TimesOf::Series);
    EXPECT_EQ(now.Subject, u"Yoga");
    EXPECT_EQ(now.Start.Day, 1);
}

TEST_F(ReadingAnew, WhatWasNoSeriesHasItsTimesOfNow) {
    AppointmentData single = Fourth(Yoga);
    single.IsRecurring = false;
    EXPECT_EQ(ReadAnew(Desk.State.Store, single, TimesOf::Occurrence).Start.Day, 1);
    EXPECT_EQ(ReadAnew(Desk.State.Store, Fourth(Party), TimesOf::Occurrence).Start.Day, 3);
}

TEST_F(ReadingAnew, WhatIsNoSeriesAnyMoreHasItsTimesOfNow) {
    AppointmentData series = Fourth(Party);
    series.IsRecurring = true;
    EXPECT_EQ(ReadAnew(Desk.State.Store, series, TimesOf::Occurrence).Start.Day, 3);
}

TEST_F(ReadingAnew, WhatIsGoneStaysAsItWas) {
    const AppointmentData record = Fourth(Party);
    Desk.Delete(Party);
    const AppointmentData now = ReadAnew(Desk.State.Store, record, TimesOf::Series);
    EXPECT_EQ(now.Subject, u"As it was");
    EXPECT_EQ(now.Start.Day, 4);
}

} // namespace

} // namespace tavo
