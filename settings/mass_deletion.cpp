// What there is to delete, and the order in which it goes.
#include "settings/mass_deletion.h"

#include "framework/format.h"
#include "memo/memo_files.h"
#include "settings/memo_list.h"

#include <unordered_set>
#include <utility>

namespace tavo {

MassDeletion::MassDeletion(CProgramState& state, const DeletionClasses& classes) : State(state), Moving(state) {
    FindTagged(classes);
    if (classes.Appointments) {
        FindAppointments();
    }
    if (classes.Memos) {
        Memos = FindAllMemos(State);
        AddToName(static_cast<int>(Memos.size()), u"memo", u"memos");
    }
    if (!Lists.empty() || Appointments || !Memos.empty()) {
        Begin();
    }
}

MassDeletion::~MassDeletion() {
    MassDeletion::Abandon(); // as it is here: nobody derives from what is going
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
        Refuse();
        return;
    }
    if (!Memos.empty() && !Moving.Begin(Memos)) {
        Refuse();
        return;
    }
    // The lists themselves are emptied when all is final. The mirror is first of all, so that the step holds the lists
    // as they were, in one piece.
    for (const TagList list : Lists) {
        static_cast<void>(State.Store.Tags()->ReplaceList(list, {})); // a failure breaks the group, and its end says so
    }
}

void MassDeletion::Refuse() {
    Refused = true;
    Tagged.clear();
    Memos.clear();
    Appointments.Reset();
    Group.reset();
}

bool MassDeletion::DoNext() {
    if (!Group) {
        return Refused && TakeBackNext(); // memos come back one by one
    }
    if (NextTagged < Tagged.size()) {
        State.Store.DeleteAppointment(Tagged[NextTagged++]);
        ++DoneCount;
        return true;
    }
    if (DeleteNextAppointment() || PutNextMemoAway()) {
        ++DoneCount;
        return true;
    }
    return !Commit();
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

// One that cannot be moved stays.
bool MassDeletion::PutNextMemoAway() {
    while (NextMemo < Memos.size()) {
        MemoPutAway memo;
        memo.Path = FormatText(u"%s\\%s", State.DataFolder, Memos[NextMemo++]);
        if (State.Host().Files().PutAwayMemo(memo.Path, memo.Kept) != ErrorCode::Success) {
            continue;
        }
        MemosAway.push_back(std::move(memo));
        if (Failed(State.Store.OutlookApp->AddNote(EncodeNote(MemosAway.back())))) {
            Refuse(); // an undo would not know of it
        }
        return true;
    }
    return false;
}

// False when the store could not keep it; everything is then to come back.
bool MassDeletion::Commit() {
    if (!Group->End()) {
        Refuse();
        return false;
    }
    Group.reset();
    MemosAway.clear();
    Moving.End();
    for (const TagList list : Lists) {
        State.Categories.ListOf(list).RemoveAll();
    }
    return true;
}

std::u16string MassDeletion::DescribeProgress() const {
    return FormatText(u"%d of %d deleted", DoneCount, TotalCount);
}

bool MassDeletion::TakeBackNext() {
    Group.reset();
    Appointments.Reset();
    if (MemosAway.empty()) {
        if (MissingCount == 0) { // else the next start tries again
            Moving.End();
        }
        return false;
    }
    MemoPutAway& memo = MemosAway.back();
    MissingCount += MemoFiles(State).BringBack(memo.Kept, memo.Path) ? 0 : 1; // somebody took it away meanwhile
    MemosAway.pop_back();
    --DoneCount;
    return true;
}

void MassDeletion::Abandon() {
    while (MassDeletion::TakeBackNext()) {
    }
}

} // namespace tavo
