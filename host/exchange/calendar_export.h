// The calendar written into a file step by step.
#pragma once

#include "host/exchange/byte_target.h"
#include "host/exchange/calendar_writer.h"
#include "platform/calendar_export.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavo::exchange {

class CalendarExport final : public ICalendarExport {
  public:
    struct Means {
        // Of the store that the program is logged on to; null while it is not.
        std::function<std::unique_ptr<IItemReader>()> OpenReader;
        // Null, and why, when nothing can be written there.
        std::function<std::unique_ptr<IByteTarget>(const std::string& path, ErrorCode& problem)> OpenTarget;
        IMemoFolder* Memos = nullptr; // null: there are none
        InkDrawing DrawInk;
        // The moment of the export: see CalendarWriter.
        std::function<std::string()> WriteStamp;
    };

    explicit CalendarExport(Means means);
    ~CalendarExport() override;
    CalendarExport(const CalendarExport&) = delete;
    CalendarExport& operator=(const CalendarExport&) = delete;

    // The path of the file that was chosen.
    void Choose(std::string path) { Chosen = std::move(path); }

    bool HasFile() const { return !Chosen.empty(); }

    std::optional<std::u16string> NextFile() override;
    int CountItems() const override;
    std::u16string Unsaid() const override;
    bool ExportOn() override;
    void Leave() override;
    int Progress() const override;
    std::u16string Problem() const override;

  private:
    struct File;

    bool WriteMemo(const std::string& name);
    bool Fail(std::string reason);
    // After a step of the writer: why it did not succeed.
    bool FailWith(Status status);

    Means Ways;
    std::string Chosen;
    std::unique_ptr<File> Current;
    std::string Reason; // why it cannot be written
};

} // namespace tavo::exchange
