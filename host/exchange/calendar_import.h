// Calendar files that somebody opens with the program, imported step by step.
#pragma once

#include "host/outlook/store.h"
#include "platform/calendar_import.h"

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tavo::exchange {

class CalendarImport final : public ICalendarImport {
  public:
    // `store`: the store that the program is logged on to; null while it is not.
    explicit CalendarImport(std::function<outlook::StorePtr()> store);
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
    bool Finish();

    std::function<outlook::StorePtr()> Store;
    std::deque<std::string> Waiting;
    std::unique_ptr<File> Current;
    std::string Reason; // why it cannot be imported
};

} // namespace tavo::exchange
