// One day of a series, changed or deleted from a row of the appointment list.
#include "tests/schedule/schedule_desk.h"

#include "edit/draft_file.h"
#include "framework/format.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tavo {

namespace {

using test::At;
using test::ScheduleDesk;
using testing::ElementsAre;
using testing::IsEmpty;

// Yoga is every day from Wednesday, the 3rd of November, on, and the list shows six days of it.
class SeriesDay : public testing::Test {
  protected:
    SeriesDay() {
        EXPECT_TRUE(Desk.Start());
        Yoga = Desk.GivenSeries(u"Yoga", At(2004, 11, 3, 18), At(2004, 11, 3, 19), kRecursDaily,
                                [](IRecurrencePattern& pattern) {
                                    EXPECT_EQ(pattern.put_NoEndDate(false), Status::Ok);
                                    EXPECT_EQ(pattern.put_Occurrences(4), Status::Ok);
                                });
        Desk.Show(ItemKind::Appointment);
    }

    // The row's menu, an entry of it, and what of the series is meant.
    void Choose(int row, int command, int part) {
        Desk.Device.Tap(20, 80 + row * 34);
        Desk.Device.ChooseTracked(command);
        Desk.Device.ChooseTracked(part);
    }

    // In the row of the start, or of the end.
    void PickDay(int control, int day) {
        Desk.Device.Tap(100, control == kEditStartDate ? 49 : 75);
        Desk.PickPeriodDate(control, 2004, 11, day);
    }

    void PickHour(int control, int hour, int minute) {
        Desk.Device.Tap(180, control == kEditStartTime ? 49 : 75);
        Desk.Device.PickTime(control, hour, minute);
    }

    void Finish() {
        ASSERT_TRUE(Desk.Settle());
        Desk.LetNoticesArrive();
    }

    // "3 18:00 Yoga", as the store has it from the 1st to the 20th.
    std::vector<std::u16string> Days() {
        std::vector<std::u16string> days;
        const ComPtr<IPOutlookItemCollection> items =
            Desk.State().Store.QueryAppointments(u"[Start] >= 11/1/2004 and [Start] <= 11/20/2004");
        ComPtr<IAppointment> item;
        for (std::int32_t index = 1; items && Succeeded(items->Item(index, item)) && item; ++index) {
            DATE start = 0;
            SYSTEMTIME time;
            std::u16string subject;
            EXPECT_EQ(item->get_Start(start), Status::Ok);
            EXPECT_EQ(item->get_Subject(subject), Status::Ok);
            EXPECT_TRUE(Desk.Device.Host().Locale().VariantTimeToSystemTime(start, time));
            days.push_back(FormatText(u"%d %02d:%02d %s", time.Day, time.Hour, time.Minute, subject));
            item.Reset();
        }
        return days;
    }

    void Undo() {
        Desk.Device.Key('Z', kModifierControl);
        Finish();
    }

    bool IsFieldEnabled(int control) {
        for (const PaintedItem& item : Desk.Device.See.Items()) {
            if (item.Role == PaintedRole::Cell && item.Id == control) {
                return item.Enabled;
            }
        }
        ADD_FAILURE() << "no such field";
        return false;
    }

    static const std::vector<std::u16string> kAll;
    ScheduleDesk Desk;
    Oid Yoga = 0;
};

const std::vector<std::u16string> SeriesDay::kAll{u"3 18:00 Yoga", u"4 18:00 Yoga", u"5 18:00 Yoga", u"6 18:00 Yoga"};

TEST_F(SeriesDay, OneIsAskedWhatOfTheSeriesIsMeant) {
    for (const int command : {kCommandModify, kCommandDelete}) {
        Desk.Device.Tap(20, 80);
        Desk.Device.ChooseTracked(command);
        Desk.Device.Do([this] { EXPECT_THAT(Desk.OpenMenu(), ElementsAre(u"This day", u"The whole series")); });
        Desk.Device.ChooseTracked(0);
        Finish();
        EXPECT_FALSE(Desk.Device.See.IsDialogOpen());
        EXPECT_THAT(Desk.Boxes(), IsEmpty());
        EXPECT_EQ(Days(), kAll);
    }
}

TEST_F(SeriesDay, TheMenuOpensBesideTheRow) {
    Desk.Device.Tap(20, 80 + 34);
    Desk.Device.ChooseTracked(kCommandModify);
    Desk.Device.Do([this] {
        const auto& tracked = Desk.Device.Host().State.Menus.Tracked;
        ASSERT_TRUE(tracked.has_value());
        EXPECT_EQ(tracked->At, (Point{115, 34 + 17 + 96}));
        EXPECT_EQ(tracked->Align, MenuAlign::Right);
    });
    Desk.Device.ChooseTracked(0);
    Finish();
}

TEST_F(SeriesDay, OneDayIsChangedAndShownSo) {
    Choose(1, kCommandModify, kCommandThisDay);
    Desk.Device.Tap(100, 20);
    Desk.Device.TypeInto(kEditSubject, u"Yoga in the park");
    PickHour(kEditStartTime, 10, 30);
    PickHour(kEditEndTime, 12, 0);
    Desk.Device.TapControl(IDOK);
    Finish();
    const std::vector<std::u16string> changed{u"3 18:00 Yoga", u"4 10:30 Yoga in the park", u"5 18:00 Yoga",
                                              u"6 18:00 Yoga"};
    EXPECT_EQ(Days(), changed);
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"Yoga", u"Yoga in the park", u"Yoga", u"Yoga"));
    AppointmentData series;
    ASSERT_EQ(Desk.State().Store.LoadAppointment(Yoga, series), Yoga);
    EXPECT_EQ(series.Subject, u"Yoga");
    Undo();
    EXPECT_EQ(Days(), kAll);
}

TEST_F(SeriesDay, OneDayMovesToAnotherDayAndCanBeChangedAgain) {
    Choose(1, kCommandModify, kCommandThisDay);
    PickDay(kEditStartDate, 9);
    Desk.Device.TapControl(IDOK);
    Finish();
    EXPECT_THAT(Days(), ElementsAre(u"3 18:00 Yoga", u"5 18:00 Yoga", u"6 18:00 Yoga", u"9 18:00 Yoga"));
    Choose(3, kCommandModify, kCommandThisDay);
    Desk.Device.Do([this] {
        EXPECT_EQ(Desk.Picked(kEditStartDate).Day, 9);
        EXPECT_EQ(Desk.Picked(kEditStartTime).Hour, 18);
    });
    PickDay(kEditStartDate, 10);
    Desk.Device.TapControl(IDOK);
    Finish();
    EXPECT_THAT(Days(), ElementsAre(u"3 18:00 Yoga", u"5 18:00 Yoga", u"6 18:00 Yoga", u"10 18:00 Yoga"));
}

TEST_F(SeriesDay, AChangedDaySurvivesAnEditOfTheSeries) {
    Choose(1, kCommandModify, kCommandThisDay);
    PickHour(kEditStartTime, 10, 0);
    Desk.Device.TapControl(IDOK);
    Choose(0, kCommandModify, kCommandWholeSeries);
    Desk.Device.Tap(100, 20);
    Desk.Device.TypeInto(kEditSubject, u"Stretching");
    Desk.Device.TapControl(IDOK);
    Finish();
    EXPECT_THAT(Days(), ElementsAre(u"3 18:00 Stretching", u"4 10:00 Stretching", u"5 18:00 Stretching",
                                    u"6 18:00 Stretching"));
}

TEST_F(SeriesDay, OkWithoutAChangeMakesTheDayNoneOfItsOwn) {
    Choose(1, kCommandModify, kCommandThisDay);
    Desk.Device.TapControl(IDOK);
    Choose(0, kCommandModify, kCommandWholeSeries);
    PickHour(kEditStartTime, 7, 0);
    PickHour(kEditEndTime, 8, 0);
    Desk.Device.TapControl(IDOK);
    Finish();
    EXPECT_THAT(Days(), ElementsAre(u"3 07:00 Yoga", u"4 07:00 Yoga", u"5 07:00 Yoga", u"6 07:00 Yoga"));
}

TEST_F(SeriesDay, WhatBelongsToTheSeriesCannotBeChangedForOneDay) {
    Choose(1, kCommandModify, kCommandThisDay);
    Desk.Device.Do([this] {
        for (const int control : {kEditSubject, kEditStartDate, kEditStartTime, kEditEndDate, kEditEndTime}) {
            EXPECT_TRUE(IsFieldEnabled(control)) << control;
        }
        for (const int control : {kEditAllDay, kEditRecurrence, kEditReminder, kEditReminderValue, kEditReminderUnit,
                                  kEditSound, kEditMemo}) {
            EXPECT_FALSE(IsFieldEnabled(control)) << control;
        }
        EXPECT_TRUE(Desk.Device.See.ShowsText(u"Only this day"));
    });
    for (int y = 40; y < 230; y += 10) { // a tap shows a control, if it is to be had
        Desk.Device.Tap(100, y);
        Desk.Device.Do([this] {
            for (const int control : {kEditAllDay, kEditRecurrence, kEditReminder, kEditSound}) {
                EXPECT_FALSE(Desk.Device.See.IsShown(control)) << control;
            }
        });
    }
    for (int stop = 0; stop < 12; ++stop) {
        Desk.Device.Key(VK_TAB);
        Desk.Device.Do([this] { EXPECT_FALSE(Desk.Device.See.IsShown(kEditRecurrence)); });
    }
    Desk.Device.Key(VK_ESCAPE);
    Finish();
    EXPECT_EQ(Days(), kAll);
}

TEST_F(SeriesDay, TheWholeSeriesIsChangedAsEver) {
    Choose(1, kCommandModify, kCommandWholeSeries);
    Desk.Device.Do([this] { EXPECT_TRUE(IsFieldEnabled(kEditRecurrence)); });
    Desk.Device.Tap(100, 20);
    Desk.Device.TypeInto(kEditSubject, u"Stretching");
    Desk.Device.TapControl(IDOK);
    Finish();
    EXPECT_THAT(Desk.Headings(), ElementsAre(u"Stretching", u"Stretching", u"Stretching", u"Stretching"));
}

TEST_F(SeriesDay, OneDayIsDeletedAfterTheQuestionAndComesBackByUndo) {
    Choose(2, kCommandDelete, kCommandThisDay);
    Desk.Device.AnswerBox(IDYES);
    ASSERT_TRUE(Desk.Settle());
    EXPECT_THAT(Desk.Boxes(), ElementsAre(u"Delete|Are you sure to delete?"));
    EXPECT_EQ(Desk.Rows().size(), 3U);
    Finish();
    EXPECT_THAT(Days(), ElementsAre(u"3 18:00 Yoga", u"4 18:00 Yoga", u"6 18:00 Yoga"));
    std::u16string name;
    ASSERT_EQ(Desk.State().Store.OutlookApp->GetUndoName(name), Status::Ok);
    EXPECT_EQ(name, u"delete of one day of Yoga");
    Undo();
    EXPECT_EQ(Days(), kAll);
    EXPECT_EQ(Desk.Rows().size(), 4U);
}

TEST_F(SeriesDay, ADeletionThatIsDeclinedChangesNothing) {
    Choose(2, kCommandDelete, kCommandThisDay);
    Desk.Device.AnswerBox(IDNO);
    Finish();
    EXPECT_EQ(Days(), kAll);
}

TEST_F(SeriesDay, TheWholeSeriesIsDeletedAsEver) {
    Choose(2, kCommandDelete, kCommandWholeSeries);
    Desk.Device.AnswerBox(IDYES);
    Finish();
    EXPECT_THAT(Days(), IsEmpty());
    EXPECT_FALSE(Desk.Exists(Yoga));
}

TEST_F(SeriesDay, TheViewLeadsToTheSameQuestion) {
    Desk.Device.Tap(20, 80 + 34);
    Desk.Device.ChooseTracked(kCommandView);
    Desk.Device.Tap(226, 49); // Delete
    Desk.Device.ChooseTracked(kCommandThisDay);
    Desk.Device.AnswerBox(IDYES);
    Finish();
    EXPECT_THAT(Days(), ElementsAre(u"3 18:00 Yoga", u"5 18:00 Yoga", u"6 18:00 Yoga"));
    Desk.Device.Tap(20, 80);
    Desk.Device.ChooseTracked(kCommandView);
    Desk.Device.Tap(226, 26); // Modify
    Desk.Device.ChooseTracked(kCommandThisDay);
    PickHour(kEditEndTime, 20, 0);
    Desk.Device.TapControl(IDOK);
    Finish();
    EXPECT_THAT(Days(), ElementsAre(u"3 18:00 Yoga", u"5 18:00 Yoga", u"6 18:00 Yoga"));
}

TEST_F(SeriesDay, ADayThatIsGoneByThenIsSaidAndNothingElseTaken) {
    Desk.Device.Tap(20, 80 + 34);
    Desk.Device.ChooseTracked(kCommandDelete);
    Desk.Device.Do([this] { Desk.Delete(Yoga); });
    Desk.Device.ChooseTracked(kCommandThisDay);
    Desk.Device.AnswerBox(IDYES);
    Desk.Device.AnswerBox(IDOK);
    Finish();
    EXPECT_EQ(Desk.Boxes().back(), u"Tavo Calendar|This day of the series is no longer there.");
    EXPECT_THAT(Days(), IsEmpty());
}

TEST_F(SeriesDay, WhatHasNoSeriesOrStandsForAllOfItAsksNothing) {
    Desk.GivenAppointment(u"Party", At(2004, 11, 3, 20), At(2004, 11, 3, 22));
    Desk.Tag(ItemKind::Alarm, Yoga);
    Desk.Device.ChangeStore();
    Finish();
    Desk.Device.Tap(20, 80 + 34);
    Desk.Device.ChooseTracked(kCommandModify);
    Desk.Device.Do([this] { EXPECT_EQ(Desk.Device.See.TextOf(kEditSubject), u"Party"); });
    Desk.Device.Key(VK_ESCAPE);
    Desk.Device.Tap(196, 20); // the alarms
    Desk.ChooseInRow(0, kCommandModify);
    Desk.Device.Do([this] { EXPECT_EQ(Desk.Device.See.TextOf(kEditSubject), u"Yoga"); });
    Desk.Device.Key(VK_ESCAPE);
    Finish();
}

// What was typed for one day goes on as one day's.
class SeriesDayDraft : public SeriesDay {
  protected:
    SeriesDayDraft() {
        Choose(1, kCommandModify, kCommandThisDay);
        Desk.Device.Tap(100, 20);
        Desk.Device.TypeInto(kEditSubject, u"In the park");
        Desk.Device.AdvanceClock(1000);
        FoundDraft left;
        Desk.Device.Do([&] { left = FindDrafts(Desk.Device.Host()).at(0); });
        Desk.Device.TapControl(IDCANCEL);
        EXPECT_TRUE(Desk.Settle());
        Desk.Stop();
        EXPECT_EQ(Desk.Device.Host().Files().WriteWholeFile(left.Path, EncodeDraft(left.Draft)), ErrorCode::Success);
    }

    void GoOn() {
        Desk.Device.AnswerBox(IDYES);
        Desk.Device.TapControl(IDOK);
        ASSERT_TRUE(Desk.Start());
        Finish();
    }
};

TEST_F(SeriesDayDraft, IsTakenUpForThatDay) {
    GoOn();
    EXPECT_THAT(Days(), ElementsAre(u"3 18:00 Yoga", u"4 18:00 In the park", u"5 18:00 Yoga", u"6 18:00 Yoga"));
}

TEST_F(SeriesDayDraft, IsAnAppointmentOfItsOwnWhereTheSeriesIsGone) {
    Desk.Delete(Yoga);
    GoOn();
    EXPECT_THAT(Days(), ElementsAre(u"4 18:00 In the park"));
}

} // namespace

} // namespace tavo
