// The desktop's dialogs for choosing calendar files.
#include "host/qt/file_dialogs.h"

#include <QFile>
#include <QFileInfo>
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

FileDialogs::FileDialogs(QWidget& parent, TakePaths takeImport, TakeWritten takeWritten)
    : Parent(parent), TakeImport(std::move(takeImport)), OwnWritten(std::move(takeWritten)) {}

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

QFileDialog* FileDialogs::Make(const QString& title, const QString& filter) {
    if (Shown != nullptr) {
        Shown->raise();
        Shown->activateWindow();
        return nullptr;
    }
    if (Folder.isEmpty()) {
        Folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    }
    Shown = new QFileDialog(&Parent, title, Folder, filter);
    Shown->setAttribute(Qt::WA_DeleteOnClose);
    return Shown;
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
