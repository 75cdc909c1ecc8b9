// The three category lists, and what is done with them as a whole.
#pragma once

#include "store/appointment_data.h"
#include "store/category_list.h"
#include "store/item_kind.h"

#include <cstdint>
#include <vector>

namespace tavo {

class CategoryLists {
  public:
    explicit CategoryLists(OutlookSession& store)
        : AlarmList(TagList::Alarm, store), HolidayList(TagList::Holiday, store),
          AnniversaryList(TagList::Anniversary, store), Store(store) {}

    bool IsAlarm(Oid oid) const { return AlarmList.Contains(oid); }

    bool IsHoliday(Oid oid) const { return HolidayList.Contains(oid); }

    bool IsAnniversary(Oid oid) const { return AnniversaryList.Contains(oid); }

    CategoryList& ListOf(TagList list);

    // The kind of the first list that the appointment stands in; Appointment when it stands in none.
    ItemKind KindOf(Oid oid) const;

    // Carries out the tags asked for from outside since the last call, oldest first. True when a list changed.
    bool ApplyTagRequests();
    // The lists were saved: the requests carried out so far need not be kept any longer.
    void FinishTagRequests();

    CategoryList AlarmList;
    CategoryList HolidayList;
    CategoryList AnniversaryList;

  private:
    bool ApplyTagRequest(const TagRequest& request);

    OutlookSession& Store;
    std::int64_t LastApplied = 0; // id of the newest request carried out
    std::int64_t LastFinished = 0;
};

// The appointments of the list, in its order. An OID whose appointment is gone is removed from the list.
std::vector<AppointmentData> LoadAndPrune(CategoryList& list, OutlookSession& store);

} // namespace tavo
