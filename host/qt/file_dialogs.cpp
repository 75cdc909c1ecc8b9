// The desktop's dialogs for choosing calendar files.
#include "host/qt/file_dialogs.h"

#include <QFile>
#include <QFileInfo>
#include <QPrintDialog>
#include <QStandardPaths>

#include <utility>

namespace tavo::qt {

namespace {

const QString kCalendarFiles = QStringLiteral("Calendar files (*.ics *.ical *.ICS *.ICAL);;All files (*)");

struct WrittenLook {
    QString Title;
    QString Filter;
    QString Suffix;
};

WrittenLook LookOf(WrittenFile what) {
    switch (what) {
    case WrittenFile::Backup:
        return {QStringLiteral("Backup"), QStringLiteral("Backups (*.tavo);;All files (*)"), QStringLiteral("tavo")};
    default:
        return {QStringLiteral("Export"), kCalendarFiles, QStringLiteral("ics")};
    }
}

} // namespace

FileDialogs::FileDialogs(QWidget& parent, TakePaths takeImport, TakeWritten takeWritten, TakePrinter takePrinter)
    : Parent(parent), TakeImport(std::move(takeImport)), OwnWritten(std::move(takeWritten)),
      OwnPrinter(std::move(takePrinter)) {}

FileDialogs::~FileDialogs() {
    delete Shown;
}

void FileDialogs::ChooseImport() {
    if (QFileDialog* dialog = Make(QStringLiteral("Import"), kCalendarFiles); dialog != nullptr) {
        dialog->setFileMode(QFileDialog::ExistingFiles);
        dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Import"));
        Open(*dialog, TakeImport);
    }
}

void FileDialogs::ChooseWritten(WrittenFile what, const std::u16string& name) {
    const WrittenLook look = LookOf(what);
    if (QFileDialog* dialog = Make(look.Title, look.Filter); dialog != nullptr) {
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setLabelText(QFileDialog::Accept, look.Title);
        dialog->setDefaultSuffix(look.Suffix);
        dialog->selectFile(QString::fromStdU16String(name));
        Open(*dialog, [this, what](const std::vector<std::string>& paths) {
            if (OwnWritten) {
                OwnWritten(what, paths.front());
            }
        });
    }
}

bool FileDialogs::IsOpen() {
    if (Shown != nullptr) {
        Shown->raise();
        Shown->activateWindow();
    }
    return Shown != nullptr;
}

// Into a file where the machine has no printer: the dialog offers that.
void FileDialogs::ChoosePrinter(const SYSTEMTIME& day) {
    if (IsOpen()) {
        return;
    }
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setDocName(QStringLiteral("Tavo Calendar"));
    auto* const dialog = new QPrintDialog(printer.get(), &Parent);
    Shown = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(QStringLiteral("Print month"));
    dialog->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    QObject::connect(dialog, &QDialog::accepted, dialog, [this, printer, day] {
        if (OwnPrinter) {
            OwnPrinter(printer, day);
        }
    });
    dialog->open();
}

QFileDialog* FileDialogs::Make(const QString& title, const QString& filter) {
    if (IsOpen()) {
        return nullptr;
    }
    if (Folder.isEmpty()) {
        Folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    }
    auto* const dialog = new QFileDialog(&Parent, title, Folder, filter);
    Shown = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

void FileDialogs::Open(QFileDialog& dialog, const TakePaths& take) {
    QObject::connect(&dialog, &QFileDialog::filesSelected, &dialog, [this, take](const QStringList& files) {
        std::vector<std::string> paths;
        for (const QString& file : files) {
            paths.push_back(QFile::encodeName(file).toStdString());
        }
        if (!files.isEmpty() && take) {
            Folder = QFileInfo(files.first()).absolutePath();
            take(paths);
        }
    });
    dialog.open();
}

} // namespace tavo::qt
