// Sorting a day's items into kinds, and making a menu of them.
#include "calendar/day_menu.h"

#include "framework/format.h"
#include "res/menus.h"
#include "res/resource_ids.h"
#include "store/text_tables.h"

#include <array>
#include <string_view>
#include <utility>

namespace tavo {

namespace {

// The submenu of a kind: the entry it takes the place of, and the commands of its own entries.
struct Submenu {
    ItemKind Kind;
    int Stored;
    int First;
    int Last;
};

constexpr std::array<Submenu, 5> kSubmenus{{
    {ItemKind::Alarm, kCommandDayAlarms, kCommandFirstAlarm, kCommandLastAlarm},
    {ItemKind::Holiday, kCommandDayHolidays, kCommandFirstHoliday, kCommandLastHoliday},
    {ItemKind::Anniversary, kCommandDayAnniversaries, kCommandFirstAnniversary, kCommandLastAnniversary},
    {ItemKind::Appointment, kCommandDaySchedules, kCommandFirstSchedule, kCommandLastSchedule},
    {ItemKind::Memo, kCommandDayMemos, kCommandFirstMemo, kCommandLastMemo},
}};

const Submenu* FindSubmenu(int command) {
    for (const Submenu& submenu : kSubmenus) {
        if (command >= submenu.First && command <= submenu.Last) {
            return &submenu;
        }
    }
    return nullptr;
}

// Kept on purpose: the entries end where their index, not their id, passes the last id. A kind with more than 200
// entries runs on into the ids of the next one, and a choice among those opens what the next kind has there.
MenuItem MakeSubmenu(const Submenu& submenu, std::vector<std::u16string> entries) {
    MenuItem popup;
    popup.IsPopup = true;
    popup.Text = FormatText(u"%s %d", kKindCaptions[IndexOf(submenu.Kind)], entries.size());
    popup.Enabled = !entries.empty();
    int index = 0;
    for (std::u16string& text : entries) {
        if (index > submenu.Last) {
            break;
        }
        MenuItem entry;
        entry.Id = submenu.First + index;
        entry.Text = std::move(text);
        popup.Children.push_back(std::move(entry));
        ++index;
    }
    return popup;
}

// The program's own commands for new items; on the month they begin on the selected day.
MenuItem MakeNewEntries() {
    constexpr std::array<std::pair<int, std::u16string_view>, 4> entries{{{kCommandNewAlarm, u"Alarm..."},
                                                                          {kCommandNewHoliday, u"Holiday..."},
                                                                          {kCommandNewAnniversary, u"Anniversary..."},
                                                                          {kCommandNewAppointment, u"Appointment..."}}};
    MenuItem popup;
    popup.IsPopup = true;
    popup.Text = u"New";
    for (const auto& [command, text] : entries) {
        MenuItem entry;
        entry.Id = command;
        entry.Text = text;
        popup.Children.push_back(std::move(entry));
    }
    return popup;
}

} // namespace

void DayMenu::Fill(std::vector<AppointmentData> items, const CategoryLists& categories,
                   std::vector<std::u16string> memoNames) {
    Items = std::move(items);
    MemoNames = std::move(memoNames);
    AlarmItems.clear();
    HolidayItems.clear();
    AnniversaryItems.clear();
    ScheduleItems.clear();
    for (std::size_t position = 0; position < Items.size(); ++position) {
        const Oid oid = Items[position].Oid;
        if (categories.IsAlarm(oid)) {
            AlarmItems.push_back(position);
        } else if (categories.IsHoliday(oid)) {
            HolidayItems.push_back(position);
        } else if (categories.IsAnniversary(oid)) {
            AnniversaryItems.push_back(position);
        } else {
            ScheduleItems.push_back(position);
        }
    }
}

std::vector<MenuItem> DayMenu::Build() const {
    std::vector<MenuItem> menu = LoadMenuW(kMenuPopups).at(kPopupCalendar).Children;
    for (MenuItem& item : menu) {
        for (const Submenu& submenu : kSubmenus) {
            if (item.Id == submenu.Stored) {
                item = MakeSubmenu(submenu, EntriesOf(submenu.Kind));
                break;
            }
        }
    }
    menu.push_back(MakeNewEntries());
    return menu;
}

std::optional<ItemKind> DayMenu::KindOfCommand(int command) {
    const Submenu* submenu = FindSubmenu(command);
    return submenu == nullptr ? std::nullopt : std::optional(submenu->Kind);
}

const AppointmentData* DayMenu::ItemOf(int command) const {
    const Submenu* submenu = FindSubmenu(command);
    if (submenu == nullptr || submenu->Kind == ItemKind::Memo) {
        return nullptr;
    }
    const Positions& positions = PositionsOf(submenu->Kind);
    const auto index = static_cast<std::size_t>(command - submenu->First);
    return index < positions.size() ? &Items[positions[index]] : nullptr;
}

const std::u16string* DayMenu::MemoOf(int command) const {
    const auto index = static_cast<std::size_t>(command - kCommandFirstMemo);
    return command >= kCommandFirstMemo && index < MemoNames.size() ? &MemoNames[index] : nullptr;
}

const DayMenu::Positions& DayMenu::PositionsOf(ItemKind kind) const {
    switch (kind) {
    case ItemKind::Alarm:
        return AlarmItems;
    case ItemKind::Holiday:
        return HolidayItems;
    case ItemKind::Anniversary:
        return AnniversaryItems;
    default:
        return ScheduleItems;
    }
}

std::vector<std::u16string> DayMenu::EntriesOf(ItemKind kind) const {
    if (kind == ItemKind::Memo) {
        return MemoNames;
    }
    std::vector<std::u16string> subjects;
    for (const std::size_t position : PositionsOf(kind)) {
        subjects.push_back(Items[position].Subject);
    }
    return subjects;
}

} // namespace tavo
