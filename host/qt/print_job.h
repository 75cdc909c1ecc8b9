// A month of the calendar on its way to a printer.
#pragma once

#include "host/outlook/store.h"
#include "host/print/printed_page.h"
#include "platform/calendar_export.h"
#include "platform/system_time.h"

#include <QPainter>
#include <QPrinter>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavo::qt {

class PrintJob final : public ICalendarExport {
  public:
    // `findStore` gives the store that the program is logged on to; null while it is not.
    explicit PrintJob(std::function<outlook::StorePtr()> findStore) : FindStore(std::move(findStore)) {}

    // The printer that was chosen, and a day of the month.
    void Choose(std::shared_ptr<QPrinter> printer, const SYSTEMTIME& day);

    bool HasPrinter() const { return Chosen != nullptr; }

    std::optional<std::u16string> NextFile() override;

    int CountItems() const override { return static_cast<int>(Pages.size()); }

    std::u16string Unsaid() const override { return {}; }

    bool ExportOn() override;
    void Leave() override;
    int Progress() const override;

    std::u16string Problem() const override { return Reason; }

  private:
    bool Begin();
    bool Fail(std::u16string_view reason);

    std::function<outlook::StorePtr()> FindStore;
    std::shared_ptr<QPrinter> Chosen;
    std::shared_ptr<QPrinter> Printer; // at work
    SYSTEMTIME Day;
    std::vector<print::PrintedPage> Pages;
    std::size_t Next = 0; // page to be drawn
    std::unique_ptr<QPainter> Painter;
    std::u16string Reason;
};

} // namespace tavo::qt
