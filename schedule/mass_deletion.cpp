// What there is to delete, and the order in which it goes.
#include "schedule/mass_deletion.h"

#include "framework/format.h"
#include "schedule/memo_list.h"

#include <unordered_set>

namespace tavo {

MassDeletion::MassDeletion(CProgramState& state, const DeletionClasses& classes) : State(state) {
    FindTagged(classes);
    if (classes.Appointments) {
        FindAppointments();
    }
    if (!Lists.empty() || Appointments) {
        Begin();
    }
    if (classes.Memos) {
        Memos = FindAllMemos(State);
        TotalCount += static_cast<int>(Memos.size());
    }
}

void MassDeletion::FindTagged(const DeletionClasses& classes) {
    if (classes.Alarms) {
        CountInList(TagList::Alarm, u"alarm", u"alarms");
    }
    if (classes.Anniversaries) {
        CountInList(TagList::Anniversary, u"anniversary", u"anniversaries");
    }
    if (classes.Holidays) {
        CountInList(TagList::Holiday, u"holiday", u"holidays");
    }
}

void MassDeletion::CountInList(TagList list, std::u16string_view one, std::u16string_view many) {
    Lists.push_back(list);
    std::unordered_set<Oid> found;
    for (const Oid oid : State.Categories.ListOf(list).All()) {
        ComPtr<IAppointment> item;
        if (State.Store.OutlookApp && Succeeded(State.Store.OutlookApp->GetItemFromOid(oid, item)) &&
            found.insert(oid).second) {
            Tagged.push_back(oid);
        }
    }
    AddToName(static_cast<int>(found.size()), one, many);
}

void MassDeletion::FindAppointments() {
    if (!State.Store.CalendarFolder || Failed(State.Store.CalendarFolder->get_Items(Appointments))) {
        Appointments.Reset();
        return;
    }
    int count = 0;
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; Succeeded(Appointments->Item(index, item)) && item; ++index) {
        Oid oid = 0;
        count += Succeeded(item->get_Oid(oid)) && !IsTagged(oid) ? 1 : 0;
        item.Reset();
    }
    AddToName(count, u"appointment", u"appointments");
}

void MassDeletion::AddToName(int count, std::u16string_view one, std::u16string_view many) {
    if (count > 0) {
        Name += FormatText(u"%s%d %s", Name.empty() ? u"delete of " : u", ", count, count == 1 ? one : many);
    }
    TotalCount += count;
}

bool MassDeletion::IsTagged(Oid oid) const {
    const CategoryLists& lists = State.Categories;
    return lists.IsAlarm(oid) || lists.IsHoliday(oid) || lists.IsAnniversary(oid);
}

void MassDeletion::Begin() {
    Group.emplace(State.Store, Name.empty() ? std::u16string_view(u"delete of forgotten tags") : Name);
    if (!Group->IsOpen()) {
        Refused = true;
        TotalCount = 0;
        Tagged.clear();
        Appointments.Reset();
        Group.reset();
        return;
    }
    // The lists themselves are emptied when all is final. The mirror is first of all, so that the step holds the lists
    // as they were, in one piece.
    for (const TagList list : Lists) {
        static_cast<void>(State.Store.Tags()->ReplaceList(list, {})); // a failure breaks the group, and its end says so
    }
}

bool MassDeletion::DoNext() {
    if (Group) {
        if (NextTagged < Tagged.size()) {
            State.Store.DeleteAppointment(Tagged[NextTagged++]);
            ++DoneCount;
            return true;
        }
        if (DeleteNextAppointment()) {
            ++DoneCount;
            return true;
        }
        Commit();
    }
    if (NextMemo < Memos.size()) {
        DeleteMemo(State, Memos[NextMemo++]);
        ++DoneCount;
        return true;
    }
    return false;
}

bool MassDeletion::DeleteNextAppointment() {
    ComPtr<IAppointment> item;
    while (Appointments && Succeeded(Appointments->Item(NextAppointment, item)) && item) {
        Oid oid = 0;
        if (Succeeded(item->get_Oid(oid)) && !IsTagged(oid) && Succeeded(item->Delete())) {
            return true;
        }
        ++NextAppointment; // tagged, or not to be had: it stays
        item.Reset();
    }
    return false;
}

void MassDeletion::Commit() {
    const bool kept = Group->End();
    Group.reset();
    Refused = !kept;
    if (kept) {
        for (const TagList list : Lists) {
            State.Categories.ListOf(list).RemoveAll();
        }
    }
}

std::u16string MassDeletion::DescribeProgress() const {
    return FormatText(u"%d of %d deleted", DoneCount, TotalCount);
}

void MassDeletion::Abandon() {
    Group.reset();
    Appointments.Reset();
    Memos.clear();
}

} // namespace tavo
