// The desktop's dialogs for choosing calendar files.
#include "host/qt/file_dialogs.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace tavo::qt {

FileDialogs::FileDialogs(QWidget& parent, TakePaths takeImport, TakePaths takeExport)
    : Parent(parent), TakeImport(std::move(takeImport)), TakeExport(std::move(takeExport)) {}

FileDialogs::~FileDialogs() {
    delete Shown;
}

void FileDialogs::ChooseImport() {
    if (QFileDialog* dialog = Make(QStringLiteral("Import")); dialog != nullptr) {
        dialog->setFileMode(QFileDialog::ExistingFiles);
        dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Import"));
        Open(*dialog, TakeImport);
    }
}

void FileDialogs::ChooseExport(const std::u16string& name) {
    if (QFileDialog* dialog = Make(QStringLiteral("Export")); dialog != nullptr) {
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setLabelText(QFileDialog::Accept, QStringLiteral("Export"));
        dialog->setDefaultSuffix(QStringLiteral("ics"));
        dialog->selectFile(QString::fromStdU16String(name));
        Open(*dialog, TakeExport);
    }
}

QFileDialog* FileDialogs::Make(const QString& title) {
    if (Shown != nullptr) {
        Shown->raise();
        Shown->activateWindow();
        return nullptr;
    }
    if (Folder.isEmpty()) {
        Folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    }
    Shown = new QFileDialog(&Parent, title, Folder,
                            QStringLiteral("Calendar files (*.ics *.ical *.ICS *.ICAL);;All files (*)"));
    Shown->setAttribute(Qt::WA_DeleteOnClose);
    return Shown;
}

void FileDialogs::Open(QFileDialog& dialog, const TakePaths& take) {
    QObject::connect(&dialog, &QFileDialog::filesSelected, &dialog, [this, &take](const QStringList& files) {
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
