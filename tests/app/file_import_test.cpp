// Calendar files that are opened with the program: what it asks, what comes of it, and the way back.
#include "host/exchange/calendar_import.h"
#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "host/posix/file_source.h"
#include "host/posix/store_machine.h"
#include "res/resource_ids.h"
#include "tests/exchange/memory_memos.h"
#include "tests/support/running_program.h"
#include "tests/support/store_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace tavo::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int kMany = 3000; // more than are imported without a display

class FileImport : public testing::Test {
  protected:
    FileImport() {
        Program.Exchange.Import = &Files;
        Program.Device.Host().Opened.SetFiles([this] { return Files.HasFiles(); });
    }

    std::string Path(const std::string& name) { return (Program.Device.Host().Root.Path() / name).string(); }

    std::string Given(const std::string& name, const std::string& text) {
        std::ofstream(Path(name), std::ios::binary) << text;
        return Path(name);
    }

    static std::string Entry(const std::string& uid, const std::string& more) {
        return "BEGIN:VEVENT\r\nUID:" + uid + "\r\nSUMMARY:" + uid + "\r\n" + more + "END:VEVENT\r\n";
    }

    static std::string Calendar(const std::string& entries) {
        return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + entries + "END:VCALENDAR\r\n";
    }

    static std::string Entries(int count) {
        std::string text;
        for (int number = 0; number < count; ++number) {
            text += Entry(std::to_string(10000 + number), "DTSTART:20041105T080000Z\r\n");
        }
        return text;
    }

    std::string GivenEntries(const std::string& name, int count) { return Given(name, Calendar(Entries(count))); }

    // Opened with the program: before its start, or by a start beside it.
    void Open(const std::vector<std::string>& paths) { Files.Add(paths); }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> texts;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            EXPECT_EQ(box.Caption, u"Tavo Calendar");
            texts.push_back(box.Text);
        }
        return texts;
    }

    int Count() { return Program.State().Store.CountAppointments(); }

    // As another process sees it.
    int CountOutside() {
        outlook::StoreOptions options;
        options.Rights = outlook::Access::ReadOnly;
        outlook::StorePtr store;
        EXPECT_EQ(outlook::OpenStore(posix::SystemMachine(), Path("Outlook.db"), options, store), Status::Ok);
        const ComPtr<IPOutlookApp> other = outlook::MakeOutlookApp(store);
        ComPtr<IFolder> folder;
        ComPtr<IPOutlookItemCollection> items;
        std::int32_t count = -1;
        EXPECT_EQ(other->GetDefaultFolder(kFolderCalendar, folder), Status::Ok);
        EXPECT_EQ(folder->get_Items(items), Status::Ok);
        EXPECT_EQ(items->get_Count(count), Status::Ok);
        return count;
    }

    void Undo() { Program.Device.Key('Z', kModifierControl); }

    exchange::MemoryMemos Memos;
    RunningProgram Program;
    exchange::CalendarImport Files{[this] {
                                       const ComPtr<IPOutlookApp>& outlook = Program.State().Store.OutlookApp;
                                       return outlook::MakeImportWriter(outlook ? outlook::StoreOf(*outlook) : nullptr);
                                   },
                                   posix::OpenFileSource, &Memos};
};

TEST_F(FileImport, AStartWithAFileAsksImportsItAndUndoTakesItBack) {
    Open({GivenEntries("holidays.ics", 14)});
    Program.Device.Do([this] { EXPECT_EQ(Count(), 0); }); // the question is open
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Start());
    EXPECT_THAT(Boxes(), ElementsAre(u"Import 14 entries from holidays.ics?",
                                     u"holidays.ics: 14 new, 0 changed, 0 unchanged, 0 refused."));
    EXPECT_EQ(Count(), 14);
    Undo();
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Count(), 0);
    EXPECT_FALSE(Program.State().Busy);
}

TEST_F(FileImport, NoImportsNothingAndLeavesNoStepToUndo) {
    ASSERT_TRUE(Program.Start());
    Open({GivenEntries("one.ics", 1)});
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(u"Import one entry from one.ics?"));
    EXPECT_EQ(Count(), 0);
    std::u16string name;
    EXPECT_EQ(Program.State().Store.OutlookApp->GetUndoName(name), Status::NotFound);
}

TEST_F(FileImport, ThePagesShowWhatWasImported) {
    ASSERT_TRUE(Program.Start());
    Program.ShowPage(PageNumber::Calendar);
    Open({Given("one.ics", Calendar(Entry("Dentist", "DTSTART:20041105T080000Z\r\n")))});
    const std::u16string before = Program.CellName(0, 5);
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    Program.Device.AdvanceClock(500);
    ASSERT_TRUE(Program.Settle());
    EXPECT_NE(Program.CellName(0, 5), before);
}

TEST_F(FileImport, MemosOfDaysComeBesideTheEntries) {
    ASSERT_TRUE(Program.Start());
    const std::string memos = "BEGIN:VJOURNAL\r\nX-TAVO-MEMO:20041105_1.pwi\r\nX-TAVO-INK:AQID\r\nEND:VJOURNAL\r\n"
                              "BEGIN:VJOURNAL\r\nX-TAVO-MEMO:20041106_1.pwi\r\nX-TAVO-INK:BAU=\r\nEND:VJOURNAL\r\n";
    Open({Given("a.ics", Calendar(memos + Entry("Dentist", "DTSTART:20041105T080000Z\r\n")))});
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(),
                ElementsAre(u"Import 3 entries from a.ics?", u"a.ics: 3 new, 0 changed, 0 unchanged, 0 refused."));
    EXPECT_THAT(Memos.List(), ElementsAre("20041105_1.pwi", "20041106_1.pwi"));
    EXPECT_EQ(Memos.Files["20041106_1.pwi"], (std::vector<std::uint8_t>{4, 5}));
    EXPECT_EQ(Count(), 1);
}

TEST_F(FileImport, SeveralFilesComeOneAfterTheOtherAndEachIsAStepOfItsOwn) {
    ASSERT_TRUE(Program.Start());
    Open({GivenEntries("a.ics", 2), Given("b.ics", Calendar(Entry("Other", "DTSTART:20041106T080000Z\r\n")))});
    for (const int answer : {IDYES, IDOK, IDYES, IDOK}) {
        Program.Device.AnswerBox(answer);
    }
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(),
                ElementsAre(u"Import 2 entries from a.ics?", u"a.ics: 2 new, 0 changed, 0 unchanged, 0 refused.",
                            u"Import one entry from b.ics?", u"b.ics: 1 new, 0 changed, 0 unchanged, 0 refused."));
    EXPECT_EQ(Count(), 3);
    Undo();
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Count(), 2);
}

TEST_F(FileImport, SaysWhatIsUnchangedChangedPassedOverAndRefused) {
    ASSERT_TRUE(Program.Start());
    const std::string stays = Entry("Stays", "DTSTART:20041106T080000Z\r\n");
    Open({Given("a.ics", Calendar(stays + Entry("Moves", "DTSTART:20041106T080000Z\r\n")))});
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    Open({Given("a.ics",
                Calendar(stays + Entry("Moves", "DTSTART:20041107T080000Z\r\n") +
                         Entry("Bad", "DTSTART:20041106T080000Z\r\nRRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30\r\n") +
                         "BEGIN:VTODO\r\nUID:Task\r\nEND:VTODO\r\n"))});
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_THAT(Boxes(), SizeIs(4));
    EXPECT_EQ(Boxes()[2], u"Import 3 entries from a.ics?");
    EXPECT_TRUE(Boxes()[3].starts_with(u"a.ics: 0 new, 1 changed, 1 unchanged, 1 refused.\n"
                                       u"1 task or note was passed over.\nLine "))
        << testing::PrintToString(Boxes()[3]);
}

TEST_F(FileImport, OfManyRefusalsTheFirstTwoAreNamed) {
    ASSERT_TRUE(Program.Start());
    std::string entries;
    for (int number = 0; number < 9; ++number) {
        entries +=
            Entry(std::to_string(number), "DTSTART:20041106T080000Z\r\nRRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30\r\n");
    }
    Open({Given("a.ics", Calendar(entries))});
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_THAT(Boxes(), SizeIs(2));
    const std::u16string told = Boxes()[1];
    EXPECT_EQ(std::count(told.begin(), told.end(), u'\n'), 3) << testing::PrintToString(told);
    EXPECT_TRUE(told.ends_with(u"\nThe command `tavo import` names them all."));
}

TEST_F(FileImport, WhatCannotBeReadIsTold) {
    ASSERT_TRUE(Program.Start());
    Open({Path("missing.ics"), Program.Device.Host().Root.Path().string(), Given("letter.ics", "Dear all,\r\n"),
          GivenEntries("empty.ics", 0)});
    for (int count = 0; count < 4; ++count) {
        Program.Device.AnswerBox(IDOK);
    }
    ASSERT_TRUE(Program.Settle());
    ASSERT_THAT(Boxes(), SizeIs(4));
    EXPECT_EQ(Boxes()[0], u"missing.ics: No such file or directory. Nothing of it was imported.");
    EXPECT_TRUE(Boxes()[1].ends_with(u": is not a regular file. Nothing of it was imported."));
    EXPECT_TRUE(Boxes()[2].starts_with(u"letter.ics: Line 1: ")) << testing::PrintToString(Boxes()[2]);
    EXPECT_EQ(Boxes()[3], u"In empty.ics there is nothing to import.");
    EXPECT_EQ(Count(), 0);
}

TEST_F(FileImport, OfACutFileComesWhatIsThere) {
    ASSERT_TRUE(Program.Start());
    Open({Given("cut.ics", "BEGIN:VCALENDAR\r\n" + Entries(2))});
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_THAT(Boxes(), SizeIs(2));
    EXPECT_TRUE(Boxes()[1].starts_with(u"cut.ics: 2 new, 0 changed, 0 unchanged, 0 refused, 1 mended.\nLine "))
        << testing::PrintToString(Boxes()[1]);
    EXPECT_EQ(Count(), 2);
}

// Broken in a way that only reading it for good tells: what came before does not stay.
TEST_F(FileImport, AFileThatChangesAfterTheQuestionLeavesNothing) {
    ASSERT_TRUE(Program.Start());
    const std::string path = GivenEntries("a.ics", 1500);
    Open({path});
    Program.Device.Do([&] { std::filesystem::resize_file(path, std::filesystem::file_size(path) - 1000); });
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_THAT(Boxes(), SizeIs(2));
    EXPECT_TRUE(Boxes()[1].ends_with(u" Nothing of it was imported.")) << testing::PrintToString(Boxes()[1]);
    EXPECT_EQ(Count(), 0);
}

TEST_F(FileImport, AHostileNameIsShownHarmlessAndShort) {
    ASSERT_TRUE(Program.Start());
    Open({GivenEntries("a\nb\x1B[31m" + std::string(200, 'x') + ".ics", 1)});
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Settle());
    ASSERT_THAT(Boxes(), SizeIs(1));
    EXPECT_TRUE(Boxes()[0].starts_with(u"Import one entry from a\u240Ab\u241B[31mxxx"))
        << testing::PrintToString(Boxes());
    EXPECT_LT(Boxes()[0].size(), 100U);
}

TEST_F(FileImport, WaitsWhileADialogIsOpen) {
    ASSERT_TRUE(Program.Start());
    Program.Device.Key('4', kModifierControl); // the editor
    Program.Device.Do([this] { Open({GivenEntries("a.ics", 2)}); });
    Program.Device.Do([this] {
        EXPECT_TRUE(Program.Device.See.IsDialogOpen());
        EXPECT_THAT(Boxes(), IsEmpty());
    });
    Program.Device.CloseWindow();
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Count(), 2);
}

TEST_F(FileImport, AFileThatComesDuringTheQuestionIsAskedAboutNext) {
    ASSERT_TRUE(Program.Start());
    Open({GivenEntries("a.ics", 2)});
    Program.Device.Do([this] { Open({GivenEntries("b.ics", 2)}); });
    Program.Device.AnswerBox(IDNO);
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(u"Import 2 entries from a.ics?", u"Import 2 entries from b.ics?"));
}

TEST_F(FileImport, WithoutAStoreItSaysSo) {
    Program.Device.Host().Outlook = [](const std::filesystem::path&, ComPtr<IPOutlookApp>&) { return Status::Fail; };
    Open({GivenEntries("a.ics", 2)});
    Program.Device.AnswerBox(IDOK); // that there is no store
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Start());
    ASSERT_THAT(Boxes(), SizeIs(2));
    EXPECT_EQ(Boxes()[1], u"a.ics: the calendar is not open. Nothing of it was imported.");
}

// One file of many entries.
class LongFileImport : public FileImport {
  protected:
    LongFileImport() {
        EXPECT_TRUE(Program.Start());
        Open({GivenEntries("many.ics", kMany)});
        Program.Device.AdvanceClock(10); // it is looked at
    }

    std::u16string Shown() { return Program.Device.See.Items().at(0).Name; }
};

TEST_F(LongFileImport, ShowsHowFarItIs) {
    std::u16string shown;
    std::u16string caption;
    Program.Device.AnswerBox(IDYES);
    Program.Device.AdvanceClock(1);
    Program.Device.Do([&] {
        shown = Shown();
        caption = Program.Device.See.Caption();
        EXPECT_TRUE(Program.State().Busy);
    });
    Program.Device.AdvanceClock(10);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(shown, u"83% imported");
    EXPECT_EQ(caption, u"Import");
    EXPECT_EQ(Count(), kMany);
    EXPECT_FALSE(Program.State().Busy);
    Undo();
    Program.Device.AdvanceClock(10);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Count(), 0);
}

TEST_F(LongFileImport, CancelledItLeavesNothingAndNoStepToUndo) {
    Program.Device.AnswerBox(IDYES);
    Program.Device.AdvanceClock(1);
    Program.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), SizeIs(1)); // the question
    EXPECT_EQ(Count(), 0);
    EXPECT_FALSE(Program.State().Busy);
    std::u16string name;
    EXPECT_EQ(Program.State().Store.OutlookApp->GetUndoName(name), Status::NotFound);
}

TEST_F(LongFileImport, QuittingMeanwhileLeavesNothing) {
    Program.Device.AnswerBox(IDYES);
    Program.Device.AdvanceClock(1);
    Program.Device.Quit();
    EXPECT_FALSE(Program.Settle());
    EXPECT_THAT(Boxes(), SizeIs(1)); // the question
    Program.Stop();
    EXPECT_EQ(CountOutside(), 0);
}

TEST_F(LongFileImport, OthersSeeItOnlyWhenItIsWhole) {
    int meanwhile = -1;
    Program.Device.AnswerBox(IDYES);
    Program.Device.AdvanceClock(1);
    Program.Device.Do([&] { meanwhile = CountOutside(); });
    Program.Device.AdvanceClock(10);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(meanwhile, 0);
    EXPECT_EQ(Count(), kMany);
}

// Looking through a long file is shown, too, and can be cancelled.
TEST_F(FileImport, CancelledWhileItIsLookedAtAsksNothing) {
    ASSERT_TRUE(Program.Start());
    Open({GivenEntries("many.ics", kMany)});
    Program.Device.AdvanceClock(1);
    Program.Device.Do([this] { EXPECT_EQ(Program.Device.See.Items().at(0).Name, u"83% looked at"); });
    Program.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_FALSE(Program.State().Busy);
}

} // namespace
} // namespace tavo::test
