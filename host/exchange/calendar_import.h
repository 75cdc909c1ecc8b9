// Calendar files that somebody opens with the program, imported step by step.
#pragma once

#include "host/exchange/byte_source.h"
#include "host/exchange/item_writer.h"
#include "host/exchange/memo_folder.h"
#include "platform/calendar_import.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavo::exchange {

class CalendarImport final : public ICalendarImport {
  public:
    // Into the store that the program is logged on to; null while it is not.
    using OpenWriter = std::function<std::unique_ptr<IItemWriter>()>;
    // Null, and a reason in a few words, when there is no such file or it cannot be read.
    using OpenFile = std::function<std::unique_ptr<IByteSource>(const std::string& path, std::string& reason)>;

    // `memos` may be null: memos are refused then. It must outlive this.
    CalendarImport(OpenWriter openWriter, OpenFile openFile, IMemoFolder* memos = nullptr);
    ~CalendarImport() override;
    CalendarImport(const CalendarImport&) = delete;
    CalendarImport& operator=(const CalendarImport&) = delete;

    // Paths of files, in the order in which they are to be imported, after those that wait already.
    void Add(const std::vector<std::string>& paths);

    bool HasFiles() const { return !Waiting.empty(); }

    std::optional<std::u16string> NextFile() override;
    bool LookOn() override;
    int CountEntries() const override;
    bool ImportOn() override;
    void Leave() override;
    int Progress() const override;

    std::u16string Problem() const override;
    std::u16string Outcome() const override;

  private:
    struct File;

    bool Fail(const std::string& reason);
    bool FailAs(Status status);
    bool Commit();
    bool TakeMemo();

    OpenWriter NewWriter;
    OpenFile NewSource;
    IMemoFolder* Memos;
    std::deque<std::string> Waiting;
    std::unique_ptr<File> Current;
    std::string Reason; // why it cannot be imported
};

} // namespace tavo::exchange
