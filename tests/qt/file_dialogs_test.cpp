// Choosing calendar files on the desktop: the dialogs of Tools, and files that are dropped on the window.
#include "res/resource_ids.h"
#include "tests/qt/desktop_program.h"

#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QUrl>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace tavo::qt {
namespace {

class FileDialogsOnTheDesktop : public testing::Test {
  protected:
    std::string Given(const std::string& name) {
        std::string path = Path(name);
        std::ofstream(path, std::ios::binary) << "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:" << name
                                              << "\r\nDTSTART:20041105T080000Z\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
        return path;
    }

    std::string Path(const std::string& name) { return Program.Root->Open().Path() + "/" + name; }

    static QFileDialog* Open() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* dialog = qobject_cast<QFileDialog*>(widget); dialog != nullptr && dialog->isVisible()) {
                return dialog;
            }
        }
        return nullptr;
    }

    // Chooses in the dialog that is open.
    static void Accept(const QStringList& paths) {
        QFileDialog* const dialog = Open();
        ASSERT_TRUE(dialog != nullptr);
        for (const QString& path : paths) {
            dialog->selectFile(path);
        }
        static_cast<QDialog*>(dialog)->accept();
    }

    // As a file manager would.
    bool Drop(const QStringList& paths) {
        QMimeData dragged;
        QList<QUrl> urls;
        for (const QString& path : paths) {
            urls.push_back(QUrl::fromLocalFile(path));
        }
        dragged.setUrls(urls);
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(&Program.Host.Desktop(), &enter);
        if (enter.isAccepted()) {
            EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
            QDropEvent drop(QPointF(50, 50), Qt::CopyAction | Qt::MoveAction, &dragged, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&Program.Host.Desktop(), &drop);
        }
        return enter.isAccepted();
    }

    DesktopProgram Program;
};

TEST_F(FileDialogsOnTheDesktop, ImportChoosesFilesAndAsksAboutThem) {
    const QString path = QString::fromStdString(Given("holidays.ics"));
    Program.ChooseMenu(0, kCommandImport);
    Program.Do([&] { Accept({path}); });
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"Import one entry from holidays.ics?"); });
    Program.AnswerBox(IDYES);
    Program.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.State().Store.CountAppointments(), 1);
    EXPECT_EQ(Open(), nullptr);
}

TEST_F(FileDialogsOnTheDesktop, ExportWritesTheFileWithItsUsualSuffix) {
    Program.ChooseMenu(0, kCommandExport);
    Program.Do([&] {
        ASSERT_TRUE(Open() != nullptr);
        EXPECT_EQ(QFileInfo(Open()->selectedFiles().value(0)).fileName(), QStringLiteral("Tavo Calendar.ics"));
        Accept({QString::fromStdString(Path("mine"))});
    });
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"mine.ics: 0 entries were written."); });
    Program.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    std::ifstream file(Path("mine.ics"), std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_TRUE(written.starts_with("BEGIN:VCALENDAR\r\n")) << written;
}

TEST_F(FileDialogsOnTheDesktop, BackupWritesOneFileWithItsUsualSuffix) {
    Program.ChooseMenu(0, kCommandBackup);
    Program.Do([&] { Accept({QString::fromStdString(Path("mine"))}); });
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"mine.tavo: 0 entries were written."); });
    Program.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_TRUE(std::ifstream(Path("mine.tavo")).good());
}

// Chooses in the print dialog that is open. It is not accepted as by its button, which would print where the dialog
// says.
void PrintInto(const std::string& path) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QPrintDialog*>(widget); dialog != nullptr && dialog->isVisible()) {
            dialog->printer()->setOutputFileName(QString::fromStdString(path));
            dialog->printer()->setPageSize(QPageSize(QPageSize::A4));
            dialog->done(QDialog::Accepted);
            return;
        }
    }
    FAIL() << "no dialog";
}

TEST_F(FileDialogsOnTheDesktop, TheMonthIsPrinted) {
    Program.ChooseMenu(0, kCommandPrintMonth);
    Program.Do([&] { PrintInto(Path("month.pdf")); });
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"month.pdf: one page was printed."); });
    Program.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    std::ifstream file(Path("month.pdf"), std::ios::binary);
    const std::string written{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_TRUE(written.starts_with("%PDF-"));
    EXPECT_NE(written.find("/MediaBox [0 0 842.000000 595.000000]"), std::string::npos);
}

TEST_F(FileDialogsOnTheDesktop, APrinterThatIsNotThereIsSaid) {
    Program.ChooseMenu(0, kCommandPrintMonth);
    Program.Do([&] { PrintInto(Path("no/such/folder/month.pdf")); });
    Program.Do([&] {
        EXPECT_EQ(Program.BoxText(),
                  u"month.pdf: the printer, or the file, cannot be written to. Nothing was written.");
    });
    Program.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
}

TEST_F(FileDialogsOnTheDesktop, ADialogThatIsClosedDoesNothing) {
    Program.ChooseMenu(0, kCommandExport);
    Program.Do([&] {
        ASSERT_TRUE(Open() != nullptr);
        Open()->reject();
    });
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(Program.BoxText(), u"");
}

TEST_F(FileDialogsOnTheDesktop, FilesThatAreDroppedAreAskedAbout) {
    const QString path = QString::fromStdString(Given("a.ICS"));
    Program.Do([&] { EXPECT_TRUE(Drop({path, QStringLiteral("/somewhere/picture.png")})); });
    Program.Do([&] { EXPECT_EQ(Program.BoxText(), u"Import one entry from a.ICS?"); });
    Program.AnswerBox(IDYES);
    Program.AnswerBox(IDOK);
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.State().Store.CountAppointments(), 1);
}

TEST_F(FileDialogsOnTheDesktop, OtherThingsAreNotTaken) {
    Program.Do([&] { EXPECT_FALSE(Drop({QStringLiteral("/somewhere/picture.png")})); });
    ASSERT_TRUE(Program.Settle());
    EXPECT_EQ(Program.BoxText(), u"");
}

} // namespace
} // namespace tavo::qt
