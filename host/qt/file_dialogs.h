// The desktop's dialogs for choosing calendar files.
#pragma once

#include "platform/file_dialogs.h"

#include <QFileDialog>
#include <QPointer>
#include <QPrinter>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavo::qt {

using TakePaths = std::function<void(const std::vector<std::string>& paths)>;
using TakePrinter = std::function<void(std::shared_ptr<QPrinter> printer, const SYSTEMTIME& day)>;
using TakeWritten = std::function<void(WrittenFile what, const std::string& path)>;

// They lie over the parent, one at a time; the program goes on behind them.
class FileDialogs final : public IFileDialogs {
  public:
    // Calls one of the two once files were chosen. `parent` must outlive it.
    FileDialogs(QWidget& parent, TakePaths takeImport, TakeWritten takeWritten, TakePrinter takePrinter);
    ~FileDialogs() override;
    FileDialogs(const FileDialogs&) = delete;
    FileDialogs& operator=(const FileDialogs&) = delete;

    void ChooseImport() override;
    void ChoosePrinter(const SYSTEMTIME& day) override;
    void ChooseWritten(WrittenFile what, const std::u16string& name) override;

  private:
    // True while another one is open, which comes forward instead.
    bool IsOpen();
    // Null while another one is open.
    QFileDialog* Make(const QString& title, const QString& filter);
    void Open(QFileDialog& dialog, const TakePaths& take);

    QWidget& Parent;
    TakePaths TakeImport;
    TakeWritten OwnWritten;
    TakePrinter OwnPrinter;
    QPointer<QDialog> Shown;
    QString Folder; // of the last choice
};

} // namespace tavo::qt
