// What leaves the store as a calendar file comes back into an empty one as it was.
#include "host/exchange/calendar_file.h"
#include "host/exchange/calendar_writer.h"
#include "host/exchange/store_sink.h"
#include "host/outlook/export_reader.h"
#include "host/outlook/own_uid.h"
#include "host/outlook/store_core.h"
#include "tests/outlook/store_fixture.h"
#include "tests/rules/random_patterns.h"

#include <gmock/gmock.h>

namespace tavo::outlook::test {

using ::testing::HasSubstr;

namespace {

// A difference is told by the field in which it lies.
void ExpectSame(const StoredItem& found, const StoredItem& expected) {
    EXPECT_EQ(found.Uid, expected.Uid);
    EXPECT_EQ(found.Subject, expected.Subject);
    EXPECT_EQ(found.Location, expected.Location);
    EXPECT_EQ(found.Categories, expected.Categories);
    EXPECT_EQ(found.Body, expected.Body);
    EXPECT_EQ(found.Start, expected.Start);
    EXPECT_EQ(found.End, expected.End);
    EXPECT_EQ(found.Zone, expected.Zone);
    EXPECT_EQ(found.ZoneStart, expected.ZoneStart);
    EXPECT_EQ(found.ZoneEnd, expected.ZoneEnd);
    EXPECT_EQ(found.ReminderMinutes, expected.ReminderMinutes);
    EXPECT_EQ(found.Pattern, expected.Pattern);
    EXPECT_EQ(found.ForeignRule, expected.ForeignRule);
    EXPECT_EQ(found.Carried, expected.Carried);
    EXPECT_EQ(found.Exceptions, expected.Exceptions);
    EXPECT_TRUE(found == expected);
}

} // namespace

class Exporting : public StoreTest {
  protected:
    static std::string Write(const StorePtr& store) {
        ExportReader reader(store);
        std::string file;
        exchange::CalendarWriter writer(
            reader, "20260503T090000Z", [](std::span<const std::uint8_t>) { return std::string("<svg/>"); },
            [&file](std::string_view piece) {
                file += piece;
                return true;
            });
        std::vector<Oid> oids;
        EXPECT_EQ(reader.List(oids), Status::Ok);
        EXPECT_TRUE(writer.Begin());
        for (const Oid oid : oids) {
            Status status = Status::Ok;
            EXPECT_TRUE(writer.Write(oid, status));
            EXPECT_EQ(status, Status::Ok);
        }
        EXPECT_TRUE(writer.End());
        return file;
    }

    static exchange::ImportCounts ReadInto(const StorePtr& store, const std::string& file) {
        exchange::MemorySource source(file);
        ImportWriter writer(store);
        EXPECT_EQ(writer.Begin(u"File"), Status::Ok);
        exchange::StoreSink sink(writer, std::nullopt, [](std::int64_t) { return true; });
        exchange::FileFault fault;
        EXPECT_EQ(exchange::ReadCalendarFile(source, sink, exchange::Manner::Strict, fault),
                  exchange::FileOutcome::Read)
            << fault.Line << ": " << fault.Reason;
        EXPECT_EQ(writer.Commit(), Status::Ok);
        for (const exchange::Remark& remark : sink.GetRemarks()) {
            ADD_FAILURE() << remark.Line << ": " << remark.Text << "\n" << file;
        }
        return sink.GetCounts();
    }

    StorePtr MakeEmpty() {
        StorePtr store;
        StoreOptions options;
        options.DeviceZone = "UTC";
        EXPECT_EQ(OpenStore(Other, Other.File("Other.db"), options, store), Status::Ok);
        return store;
    }

    // Where exceptions came from and how the item is numbered is the store's own affair.
    static StoredItem Contents(const StorePtr& store, Oid oid) {
        exchange::ExportItem item;
        EXPECT_EQ(ExportReader(store).Read(oid, item), Status::Ok);
        item.Item.Item = 0;
        for (StoredException& exception : item.Item.Exceptions) {
            exception.Source = 0;
        }
        return item.Item;
    }

    // The store's items come out of its file, in their order, and a file of the copy is the same.
    void ExpectTheSameElsewhere() {
        const std::string file = Write(Store);
        const StorePtr copy = MakeEmpty();
        ReadInto(copy, file);
        std::vector<Oid> here;
        std::vector<Oid> there;
        ASSERT_EQ(ExportReader(Store).List(here), Status::Ok);
        ASSERT_EQ(ExportReader(copy).List(there), Status::Ok);
        ASSERT_EQ(here.size(), there.size());
        for (std::size_t index = 0; index < here.size(); ++index) {
            StoredItem expected = Contents(Store, here[index]);
            if (expected.Uid.empty()) {
                expected.Uid = ExportReader(Store).NameItem(here[index]);
            }
            ExpectSame(Contents(copy, there[index]), expected);
        }
        EXPECT_EQ(Write(copy), file);
    }

    MemoryMachine Other{posix::SystemZones()};
};

class ItemDice : public Dice {
  public:
    using Dice::Dice;

    StoredItem DrawItem(int number) {
        StoredItem item = MakeItem(Happens(3) ? "" : "drawn-" + std::to_string(number), "2026-05-01", "2026-05-01");
        const Seconds start = MidnightOf(DrawDate().Number) + (Happens(4) ? 0 : Draw(0, 86399));
        const Seconds length = Happens(3) ? 0 : Draw(0, 31L * 86400);
        item.AllDay = Happens(4);
        item.Start = item.AllDay ? MidnightOf(DayOf(start)) : start;
        item.End = item.Start + (item.AllDay ? (Happens(2) ? 0 : Draw(2, 31) * 86400) : length);
        if (!item.AllDay && Happens(2)) {
            constexpr const char* kZones[] = {"UTC", "Europe/Berlin", "America/New_York", "Asia/Kathmandu",
                                              "Australia/Lord_Howe"};
            item.Zone = kZones[Draw(0, 4)];
            item.ZoneStart = item.Start;
            item.ZoneEnd = item.End;
        }
        constexpr const char16_t* kTexts[] = {u"", u"Plain", u"Line\nby; line, and \\back\\", u"Grüße aus Łódź 🎉",
                                              (u"A text that is so long that it has to be folded more than once: "
                                               u"ääääääääääääääääääääääääääääääääääääääääääääääääääää")};
        item.Subject = kTexts[Draw(0, 4)];
        item.Location = kTexts[Draw(0, 4)];
        item.Body = kTexts[Draw(0, 4)];
        item.BusyStatus = static_cast<std::int32_t>(Draw(0, 3));
        item.Sensitivity = static_cast<std::int32_t>(Draw(0, 3));
        item.ReminderSet = Happens(2);
        item.ReminderMinutes = static_cast<std::int32_t>(Happens(20) ? Draw(600000, 900000) : Draw(0, 3000));
        item.ReminderOptions = static_cast<std::int32_t>(Draw(0, 31));
        item.ReminderSound = Happens(2) ? u"\\Windows\\Alarm1.wav" : u"";
        item.Carried = Happens(3) ? "URL:https://example.org/1\nBEGIN:VALARM\nTRIGGER:-PT5M\nEND:VALARM" : "";
        if (Happens(5)) {
            item.Ink.assign(static_cast<std::size_t>(Draw(1, 2000)), static_cast<std::uint8_t>(Draw(0, 255)));
        }
        DrawSeries(item);
        return item;
    }

  private:
    void DrawSeries(StoredItem& item) {
        const Seconds start = item.Zone.empty() ? item.Start : item.ZoneStart;
        if (Happens(2)) {
            return;
        }
        if (Happens(5)) {
            item.Pattern.Type = kRecursForeign;
            item.ForeignRule = "RRULE:FREQ=MONTHLY;BYMONTHDAY=5,20;COUNT=30\nEXDATE:20260505T090000";
        } else {
            item.Pattern = ToPattern(DrawRule(PaperOf(start)));
            item.Pattern.End = static_cast<PatternEnd>(Draw(0, 2));
            item.Pattern.Occurrences = static_cast<std::int32_t>(Draw(1, 40));
            item.Pattern.LastDay = std::min<DayNumber>(DayOf(start) + Draw(0, 9000), kLastStoredDay);
        }
        for (long count = Happens(2) ? Draw(0, 4) : 0; count > 0; --count) {
            StoredException exception;
            exception.Original = start + count * 7 * 86400;
            if (DayOf(exception.Original) > kLastStoredDay - 100) {
                continue;
            }
            if (Happens(2)) {
                exception.Kind = ExceptionKind::Moved;
                exception.Start = exception.Original + (item.AllDay ? Draw(0, 3) * 86400 : Draw(0, 300000));
                exception.End = exception.Start + (item.AllDay ? Draw(2, 5) * 86400 : Draw(0, 90000));
                exception.Subject = Happens(2) ? std::optional<std::u16string>(u"Moved; once") : std::nullopt;
                exception.Carried = Happens(2) ? "COMMENT:once" : "";
            }
            item.Exceptions.push_back(exception);
        }
    }

    static PaperDate PaperOf(Seconds start) {
        const CivilDate date = CivilFromDay(DayOf(start));
        return FindPaperDate(date.Year, date.Month, date.Day);
    }
};

TEST_F(Exporting, RandomStoresComeBackAsTheyWere) {
    const unsigned seed = ReadSeed();
    SCOPED_TRACE(seed);
    ItemDice dice(seed);
    for (int round = 0; round < 4 && !HasFailure(); ++round) {
        int taken = 0;
        for (int number = 0; number < 100; ++number) {
            const StoredItem item = dice.DrawItem(round * 1000 + number);
            taken += TryImport(item).Result == ImportResult::New ? 1 : 0;
        }
        EXPECT_GT(taken, 60);
        ExpectTheSameElsewhere();
    }
}

// As an import makes it of whole days.
StoredItem MakeLeave() {
    StoredItem item = MakeItem("leave", "2026-03-01 00:00", "2026-03-01 00:00");
    item.AllDay = true;
    item.Pattern.Type = kRecursDaily;
    item.Pattern.End = rules::PatternEnd::OnDate;
    item.Pattern.LastDay = DayOf(At("2026-04-14"));
    item.Carried = "X-TAVO-WHOLE-DTSTART;VALUE=DATE:20260301\nX-TAVO-WHOLE-DTEND;VALUE=DATE:20260415";
    return item;
}

TEST_F(Exporting, ALongEntryLeavesAsItCame) {
    Import(MakeLeave());
    const std::string file = Write(Store);
    EXPECT_THAT(file, HasSubstr("\r\nDTSTART;VALUE=DATE:20260301\r\nDTEND;VALUE=DATE:20260415\r\nSUMMARY"));
    EXPECT_THAT(file, ::testing::Not(::testing::AnyOf(HasSubstr("RRULE"), HasSubstr("X-TAVO-WHOLE"))));
}

TEST_F(Exporting, ALongEntryThatWasChangedLeavesAsItsDays) {
    const auto leaves = [this](const std::function<void(StoredItem&)>& change) {
        StoredItem item = MakeLeave();
        change(item);
        const Oid oid = Import(item);
        const std::string file = Write(Store);
        EXPECT_EQ(Get(oid)->Delete(), Status::Ok);
        return file;
    };
    const auto isDays = ::testing::AllOf(HasSubstr("\r\nRRULE:FREQ=DAILY"), HasSubstr("X-TAVO-WHOLE-DTEND"));
    EXPECT_THAT(leaves([](StoredItem&) {}), ::testing::Not(isDays));
    EXPECT_THAT(leaves([](StoredItem& item) { item.Pattern.LastDay += 1; }), isDays);
    EXPECT_THAT(leaves([](StoredItem& item) { item.Start = item.End = At("2026-03-02 00:00"); }), isDays);
    EXPECT_THAT(leaves([](StoredItem& item) { item.Pattern.Interval = 2; }), isDays);
    EXPECT_THAT(leaves([](StoredItem& item) { item.ReminderSet = true; }), isDays);
    EXPECT_THAT(leaves([](StoredItem& item) {
                    item.Exceptions.emplace_back().Original = At("2026-03-05 00:00"); // cancelled
                }),
                isDays);
    EXPECT_THAT(leaves([](StoredItem& item) { item.Carried.replace(item.Carried.find("20260415"), 8, "20260320"); }),
                isDays);
}

TEST_F(Exporting, AZoneThatCameAlongComesBack) {
    ImportWriter writer(Store);
    ImportOutcome outcome;
    ASSERT_EQ(writer.Begin(u"File"), Status::Ok);
    ASSERT_EQ(writer.DefineZone("Office Standard Time#1", kOfficeZone), Status::Ok);
    StoredItem item = MakeItem("office", "2026-07-01 09:00", "2026-07-01 10:00");
    item.Zone = "Office Standard Time#1";
    item.ZoneStart = item.Start;
    item.ZoneEnd = item.End;
    item.Pattern = Weekly(1 << WeekdayOf(DayOf(item.Start)));
    ASSERT_EQ(writer.Write(item, outcome), Status::Ok);
    ASSERT_EQ(writer.Commit(), Status::Ok);
    const std::string file = Write(Store);
    EXPECT_THAT(file, HasSubstr("\r\nTZID:Office Standard Time\r\n"));
    EXPECT_THAT(file, HasSubstr("\r\nDTSTART;TZID=Office Standard Time:20260701T090000\r\n"));
    const StorePtr copy = MakeEmpty();
    ReadInto(copy, file);
    const StoredItem there = Contents(copy, 1);
    EXPECT_EQ(there.Start, At("2026-07-01 07:00"));
    EXPECT_EQ(there.ZoneStart, item.ZoneStart);
    EXPECT_EQ(Write(copy), file);
}

TEST_F(Exporting, WhatWasMadeHereIsKnownAgainAndNotDoubled) {
    const Oid oid = AddSeries("2026-05-04 09:00", "2026-05-04 10:00", Weekly(2), u"Made here");
    const std::string file = Write(Store);
    EXPECT_EQ(ReadInto(Store, file).Unchanged, 1);
    EXPECT_EQ(Read(oid).Uid, "");
    const ComPtr<IAppointment> item = Get(oid);
    EXPECT_EQ(item->put_Subject(u"Edited"), Status::Ok);
    EXPECT_EQ(item->Save(), Status::Ok);
    EXPECT_EQ(ReadInto(Store, file).Changed, 1);
    EXPECT_EQ(Read(oid).Subject, u"Made here");
    EXPECT_EQ(WalkOids(*Items()).size(), 1U);
    const StorePtr copy = MakeEmpty();
    EXPECT_EQ(ReadInto(copy, file).New, 1);
    EXPECT_EQ(ReadInto(copy, file).Unchanged, 1);
}

// Two connections to one file, as two processes have.
class ExportingFromAFile : public StoreFileTest {
  protected:
    std::u16string SubjectOf(ExportReader& reader, Oid oid) {
        exchange::ExportItem item;
        EXPECT_EQ(reader.Read(oid, item), Status::Ok);
        return item.Item.Subject;
    }

    void Rename(Oid oid, const std::u16string& subject) {
        const ComPtr<IAppointment> item = Get(oid);
        EXPECT_EQ(item->put_Subject(subject), Status::Ok);
        EXPECT_EQ(item->Save(), Status::Ok);
    }
};

TEST_F(ExportingFromAFile, WritesTheMomentThatItHolds) {
    const Oid oid = Add("2026-05-02 10:00", "2026-05-02 11:00", u"Before");
    StorePtr same;
    ASSERT_EQ(OpenStore(Machine, File, {}, same), Status::Ok);
    {
        ExportReader reader(same);
        ASSERT_EQ(reader.HoldMoment(), Status::Ok);
        EXPECT_EQ(SubjectOf(reader, oid), u"Before");
        Rename(oid, u"After");
        EXPECT_EQ(SubjectOf(reader, oid), u"Before");
    }
    ExportReader later(same);
    EXPECT_EQ(SubjectOf(later, oid), u"After");
    Rename(oid, u"Later still");
    EXPECT_EQ(SubjectOf(later, oid), u"Later still");
}

TEST_F(Exporting, StoresNameTheirItemsDifferently) {
    const StorePtr other = MakeEmpty();
    EXPECT_NE(ExportReader(Store).NameItem(1), ExportReader(other).NameItem(1));
    EXPECT_NE(ExportReader(Store).NameItem(1), ExportReader(Store).NameItem(11));
    const std::int64_t identity = ReadStoreIdentity(CoreOf(*Store).Db);
    EXPECT_NE(identity, 0);
    EXPECT_EQ(OwnUids(identity).Read(OwnUids(identity).Make(12)), 12);
    EXPECT_EQ(OwnUids(identity + 1).Read(OwnUids(identity).Make(12)), 0);
    for (const char* tail : {"", "0", "-1", "12x", "99999999999"}) {
        EXPECT_EQ(OwnUids(identity).Read(OwnUids(identity).Make(1).substr(0, 22) + tail), 0) << tail;
    }
}

TEST_F(Exporting, ARuleThatAnotherProgramChangedIsTheRule) {
    AddSeries("2026-05-04 09:00", "2026-05-04 10:00", Monthly(31), u"Last");
    std::string file = Write(Store);
    const std::string ours = "FREQ=MONTHLY;BYMONTHDAY=28,29,30,31;BYSETPOS=-1";
    ASSERT_THAT(file, HasSubstr(ours));
    file.replace(file.find(ours), ours.size(), "FREQ=WEEKLY;BYDAY=SU");
    const StorePtr copy = MakeEmpty();
    ReadInto(copy, file);
    EXPECT_EQ(Contents(copy, 1).Pattern, Weekly(1));
}

} // namespace tavo::outlook::test
