// The calendar on its way into a file: what the program asks, says and writes.
#include "host/backup/chosen_backup.h"
#include "host/exchange/calendar_export.h"
#include "host/ink/ink_drawing.h"
#include "host/outlook/export_reader.h"
#include "host/outlook/store.h"
#include "host/posix/file_target.h"
#include "res/resource_ids.h"
#include "tests/exchange/memory_memos.h"
#include "tests/support/running_program.h"
#include "tests/support/store_of.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace tavo::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::StartsWith;

constexpr int kMany = 3000; // more than are written without a display

// Notes what it is asked for.
class NotedDialogs final : public IFileDialogs {
  public:
    void ChooseImport() override { ++Imports; }

    void ChooseWritten(WrittenFile what, const std::u16string& name) override { Written.emplace_back(what, name); }

    void ChoosePrinter(const SYSTEMTIME& day) override { Prints.push_back(day); }

    int Imports = 0;
    std::vector<std::pair<WrittenFile, std::u16string>> Written;
    std::vector<SYSTEMTIME> Prints;
};

class FileExport : public testing::Test {
  protected:
    FileExport() {
        Program.Exchange = {nullptr, &Files, &Dialogs, &Backup};
        Program.Device.Host().Opened.SetWritten([this]() -> std::optional<WrittenFile> {
            if (Backup.HasFile()) {
                return WrittenFile::Backup;
            }
            return Files.HasFile() ? std::optional(WrittenFile::Export) : std::nullopt;
        });
    }

    std::string Path(const std::string& name) { return (Program.Device.Host().Root.Path() / name).string(); }

    std::string Written(const std::string& name) {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::vector<std::u16string> Boxes() {
        std::vector<std::u16string> texts;
        for (const MessageBoxDescription& box : Program.Device.Host().Seen.Boxes) {
            texts.push_back(box.Text);
        }
        return texts;
    }

    NotedDialogs Dialogs;
    exchange::MemoryMemos Memos;
    RunningProgram Program;
    backup::ChosenBackup Backup{files::DeviceRoot(Program.Device.Host().Root.Path().string())};
    exchange::CalendarExport Files{
        {[this] {
             const ComPtr<IPOutlookApp>& outlook = Program.State().Store.OutlookApp;
             return outlook::MakeExportReader(outlook ? outlook::StoreOf(*outlook) : nullptr);
         },
         posix::OpenFileTarget, &Memos, ink::DrawAsSvg, [] { return std::string("20260503T090000Z"); }}};
};

TEST_F(FileExport, TheCommandsOpenTheDialogs) {
    ASSERT_TRUE(Program.Start());
    Program.Device.ChooseMenu(u"Tools", kCommandImport);
    Program.Device.ChooseMenu(u"Tools", kCommandExport);
    Program.Device.ChooseMenu(u"Tools", kCommandBackup);
    Program.ShowPage(PageNumber::Calendar);
    Program.Device.Key('P', kModifierControl);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Dialogs.Imports, 1);
    EXPECT_THAT(Dialogs.Written, ElementsAre(Pair(WrittenFile::Export, u"Tavo Calendar.ics"),
                                             Pair(WrittenFile::Backup, u"Tavo Calendar 2004-11-03.tavo")));
    ASSERT_EQ(Dialogs.Prints.size(), 1U);
    EXPECT_EQ(Dialogs.Prints[0].Month, 11);
    EXPECT_EQ(Dialogs.Prints[0].Year, 2004);
}

TEST_F(FileExport, WhereThereAreNoDialogsTheCommandsAreGrey) {
    Program.Exchange.Dialogs = nullptr;
    ASSERT_TRUE(Program.Start());
    Program.Device.OpenMenu(u"Tools");
    Program.Device.Do([this] {
        for (const MenuItem& item : Program.Device.See.MenuBar()->Menus.back().Children) {
            const bool isOfFiles = item.Id == kCommandImport || item.Id == kCommandExport ||
                                   item.Id == kCommandBackup || item.Id == kCommandPrintMonth;
            EXPECT_NE(item.Enabled, isOfFiles || item.Id == kCommandUndoStep) << item.Id;
        }
    });
    Program.Device.Key(VK_ESCAPE);
    ASSERT_TRUE(Program.Settle());
}

TEST_F(FileExport, TheChosenFileGetsTheCalendarAndItIsSaid) {
    ASSERT_TRUE(Program.Start());
    Program.GivenAppointment(u"Dentist", At(2004, 11, 5, 8, 0), At(2004, 11, 5, 8, 30));
    Files.Choose(Path("out.ics"));
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(u"out.ics: one entry was written."));
    EXPECT_THAT(Written("out.ics"), AllOf(StartsWith("BEGIN:VCALENDAR"), HasSubstr("\r\nSUMMARY:Dentist\r\n"),
                                          EndsWith("END:VCALENDAR\r\n")));
}

TEST_F(FileExport, MemosOfDaysAreWrittenToo) {
    Memos.Files = {{"20041105_080000.pwi", {1, 2, 3}}, {"notes.pwi", {4}}};
    ASSERT_TRUE(Program.Start());
    Files.Choose(Path("out.ics"));
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(u"Export to out.ics?\nOther calendars will not understand: 1 note of ink (seen as "
                                     u"a picture).",
                                     u"out.ics: one entry was written."));
    EXPECT_THAT(Written("out.ics"), HasSubstr("X-TAVO-MEMO:20041105_080000.pwi\r\n"));
}

TEST_F(FileExport, AMemoThatCannotBeReadIsNamedAndNothingIsWritten) {
    Memos.Files = {{"20041105_080000.pwi", {1, 2, 3}}};
    Memos.Problem = ErrorCode::AccessDenied;
    ASSERT_TRUE(Program.Start());
    Files.Choose(Path("out.ics"));
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    ASSERT_EQ(Boxes().size(), 2U);
    EXPECT_EQ(Boxes()[1], u"out.ics: the memo 20041105_080000.pwi cannot be read. Nothing was written.");
    EXPECT_EQ(Written("out.ics"), "");
}

class UnsaidExport : public FileExport {
  protected:
    UnsaidExport() {
        EXPECT_TRUE(Program.Start());
        Program.GivenAppointment(u"Train", At(2004, 11, 5, 8, 0), At(2004, 11, 5, 8, 30), [](IAppointment& item) {
            EXPECT_EQ(item.put_ReminderSoundFile(u"\\Windows\\Bell.wav"), Status::Ok);
        });
        std::ofstream(Path("out.ics")) << "old";
        Files.Choose(Path("out.ics"));
    }

    const std::u16string Question = u"Export to out.ics?\nOther calendars will not understand: 1 sound.";
};

TEST_F(UnsaidExport, WhatOthersWillNotUnderstandIsAskedAboutFirst) {
    Program.Device.Do([this] { EXPECT_EQ(Written("out.ics"), "old"); }); // the question is open
    Program.Device.AnswerBox(IDYES);
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(Question, u"out.ics: one entry was written."));
    EXPECT_THAT(Written("out.ics"), HasSubstr("X-TAVO-SOUND"));
}

TEST_F(UnsaidExport, NoLeavesTheFileAsItWas) {
    Program.Device.AnswerBox(IDNO);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(Question));
    EXPECT_EQ(Written("out.ics"), "old");
}

TEST_F(FileExport, AFolderThatIsGoneIsSaid) {
    ASSERT_TRUE(Program.Start());
    Files.Choose(Path("nowhere/out.ics"));
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(u"out.ics: there is no such folder. Nothing was written."));
}

TEST_F(FileExport, ALongOneIsShownAndCancelledLeavesTheFileAsItWas) {
    ASSERT_TRUE(Program.Start());
    for (int number = 0; number < kMany; ++number) {
        Program.GivenAppointment(u"One of many", At(2004, 11, 5, 8, 0), At(2004, 11, 5, 8, 30));
    }
    std::ofstream(Path("out.ics")) << "old";
    Files.Choose(Path("out.ics"));
    Program.Device.AdvanceClock(1);
    Program.Device.Do([this] {
        const std::u16string shown = Program.Device.See.Items().at(0).Name;
        EXPECT_TRUE(shown.ends_with(u"% exported")) << testing::PrintToString(shown);
        EXPECT_TRUE(Program.State().Busy);
    });
    Program.Device.TapControl(IDCANCEL);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_FALSE(Program.State().Busy);
    EXPECT_EQ(Written("out.ics"), "old");
}

TEST_F(FileExport, WhileAQuestionIsOpenItWaits) {
    ASSERT_TRUE(Program.Start());
    Program.Device.ChooseMenu(u"Tools", kCommandAbout);
    Program.Device.Do([this] { Files.Choose(Path("out.ics")); });
    Program.Device.Do([this] { EXPECT_TRUE(Files.HasFile()); });
    Program.Device.PressOk();
    Program.Device.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_THAT(Boxes(), ElementsAre(u"out.ics: 0 entries were written."));
}

} // namespace
} // namespace tavo::test
