// The menu of one day: its items by kind, its memos, and a new memo.
#pragma once

#include "platform/menus.h"
#include "store/appointment_data.h"
#include "store/category_lists.h"
#include "store/item_kind.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavo {

// Keeps what it was built from, whatever happens to the day while it is open.
class DayMenu {
  public:
    // Each item goes to the first kind that its tags say.
    void Fill(std::vector<AppointmentData> items, const CategoryLists& categories,
              std::vector<std::u16string> memoNames);

    // As it is shown: a submenu for each kind with its count, greyed when there is nothing in it, and one for new
    // items.
    std::vector<MenuItem> Build() const;

    // What a command stands for; null or nothing when the menu has no such entry.
    static std::optional<ItemKind> KindOfCommand(int command);
    const AppointmentData* ItemOf(int command) const;
    const std::u16string* MemoOf(int command) const;

  private:
    using Positions = std::vector<std::size_t>; // in Items

    const Positions& PositionsOf(ItemKind kind) const;
    std::vector<std::u16string> EntriesOf(ItemKind kind) const;

    std::vector<AppointmentData> Items; // in the day list's order
    Positions AlarmItems;
    Positions HolidayItems;
    Positions AnniversaryItems;
    Positions ScheduleItems;
    std::vector<std::u16string> MemoNames;
};

} // namespace tavo
