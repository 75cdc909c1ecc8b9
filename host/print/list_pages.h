// Weeks, days and lists: line below line, page after page.
#pragma once

#include "host/print/print_request.h"
#include "host/print/printed_days.h"
#include "host/print/printed_page.h"

#include <vector>

namespace tavo::print {

class ListPages {
  public:
    explicit ListPages(const PrintRequest& request);

    void AddTitle(PrintKind kind, DayNumber first, DayNumber last);
    void AddDay(DayNumber day);
    void AddEntry(const PrintedEntry& entry);
    // In place of entries.
    void AddNothing();
    // As wide as the page, and never cut by its end.
    void AddInk(const std::vector<ink::PlacedStroke>& strokes);
    // All pages, with their numbers where there are several.
    std::vector<PrintedPage> Finish();

  private:
    // Room for something so high; on a new page where the rest of this one is too short.
    Box Take(double height);
    PrintedText& Write(const Box& place, std::u16string text, int size);
    void Begin();

    PrintRequest Wanted;
    Box Area; // inside the margins, above the number
    double Used = 0;
    std::vector<PrintedPage> Pages;
};

} // namespace tavo::print
