// Items by words in their texts.
#pragma once

#include "host/outlook/store.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavo::outlook {

struct FoundItem {
    Oid Item = 0;
    Seconds Start = 0; // of the first occurrence, on the device's clock
    bool IsAllDay = false;
    bool IsRecurring = false;
    std::string Subject; // UTF-8
    std::string Location;
};

// Finds the items in which each word of the text stands somewhere in the subject, the location or the notes, whatever
// its case. Nothing is found by a text without words.
class ItemSearch {
  public:
    ItemSearch(StorePtr store, std::u16string_view text);

    // Looks at that many more items, those made last first, and appends what is found. False when there are no more;
    // a failure of the store is told by Result.
    bool Step(int items, std::vector<FoundItem>& found);

    Status Result() const { return Outcome; }

  private:
    bool Holds(std::string_view subject, std::string_view location, std::string_view body);

    StorePtr Source;
    std::vector<std::string> Words; // folded
    std::string Folded;             // of the item that is looked at
    Oid Before;                     // all from here on have been looked at
    Status Outcome = Status::Ok;
};

} // namespace tavo::outlook
