// Filling from a category list, and keeping it in step.
#include "schedule/category_item_list.h"

#include "res/menus.h"
#include "res/resource_ids.h"
#include "store/item_deletion.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tavo {

namespace {
constexpr ItemListLook kLook{51, 4, 2, 66};
}

CCategoryItemList::CCategoryItemList(CMessagePump& pump, CProgramState& state, IItemListOwner& owner, ItemKind kind)
    : CItemList(pump, state, owner, kind, kLook) {}

CategoryList& CCategoryItemList::Category() {
    return State.Categories.ListOf(static_cast<TagList>(IndexOf(Kind())));
}

void CCategoryItemList::Fill() {
    SetRows(LoadAndPrune(Category(), State.Store));
}

bool CCategoryItemList::AddOrReplace(const AppointmentData& record, bool isNew, Oid oldOid) {
    AppointmentData stored;
    const bool isRead = State.Store.LoadAppointment(record.Oid, stored) != 0;
    if (!isRead && State.Store.LastStoreResult == Status::NotFound) {
        return true; // gone again already
    }
    Tag(record.Oid, isNew, oldOid);
    if (!isRead) {
        return false;
    }
    if (isNew) {
        InsertRow(Count(), std::move(stored));
        SelectFirst();
        return true;
    }
    const int row = FindRow(oldOid);
    if (row != kNoSelection) {
        RemoveRow(row);
        InsertRow(row, std::move(stored));
        SelectFirst();
    }
    return true;
}

void CCategoryItemList::Tag(Oid oid, bool isNew, Oid oldOid) {
    if (isNew) {
        Category().Append(oid);
    } else if (const std::optional<std::size_t> place = Category().Find(oldOid); place && oldOid != oid) {
        Category().RemoveAt(*place);
        Category().Insert(*place, oid);
    }
}

bool CCategoryItemList::DeleteSelected() {
    const AppointmentData* selected = GetSelected();
    if (selected == nullptr || !DeleteItem(State, Kind(), *selected)) {
        return false;
    }
    RemoveRow(Selected());
    return true;
}

ItemRowText CCategoryItemList::Describe(const AppointmentData& record) {
    ILocale& locale = Host().Locale();
    const std::optional<PatternRange> range =
        record.IsRecurring ? LoadPatternRange(record.Oid, State.Store, locale) : std::nullopt;
    return DescribeTaggedRow(Kind(), record, range, locale);
}

std::vector<MenuItem> CCategoryItemList::MakeMenu(const AppointmentData&) {
    std::vector<MenuItem> menu = LoadMenuW(kMenuPopups).at(kPopupSchedule).Children;
    const auto isUseful = [](const MenuItem& item) {
        return item.Id == kCommandView || item.Id == kCommandModify || item.Id == kCommandDelete;
    };
    std::erase_if(menu, [&](const MenuItem& item) { return !isUseful(item); });
    return menu;
}

} // namespace tavo
