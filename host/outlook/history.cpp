// The journal's groups, read for people.
#include "host/outlook/history.h"

#include "host/outlook/change_names.h"
#include "host/outlook/store_core.h"
#include "host/outlook/text.h"

#include <utility>

namespace tavo::outlook {

namespace {

PastChange Describe(ChangeKind kind) {
    switch (kind) {
    case ChangeKind::Created:
        return PastChange::Made;
    case ChangeKind::Changed:
        return PastChange::Changed;
    case ChangeKind::Deleted:
        return PastChange::Deleted;
    case ChangeKind::TagInserted:
    case ChangeKind::TagRemoved:
    case ChangeKind::Note:
        break;
    }
    return PastChange::None;
}

std::string SubjectOf(std::span<const std::uint8_t> bytes) {
    ItemImage image;
    return DecodeImage(bytes, image) ? ToUtf8(image.Item.Subject) : std::string();
}

Status ReadChanges(Database& database, std::int64_t group, PastStep& step) {
    const auto created = static_cast<std::int64_t>(ChangeKind::Created);
    const auto lastOfItems = static_cast<std::int64_t>(ChangeKind::Deleted);
    // What was made and then changed in one step counts once.
    Query count(database, "SELECT coalesce(sum(last_oid - oid + 1), 0) + (SELECT count(DISTINCT later.oid)"
                          " FROM journal_change AS later WHERE later.group_id = ?1 AND later.kind > ?2 AND later.kind"
                          " <= ?3 AND NOT EXISTS (SELECT 1 FROM journal_change AS made WHERE made.group_id = ?1 AND"
                          " made.kind = ?2 AND later.oid BETWEEN made.oid AND made.last_oid)) FROM journal_change"
                          " WHERE group_id = ?1 AND kind = ?2");
    if (count.Bind(group).Bind(created).Bind(lastOfItems).Next()) {
        step.Items = count.Integer(0);
    }
    Query first(database, "SELECT kind, oid, image, (SELECT subject FROM item WHERE item.oid = journal_change.oid)"
                          " FROM journal_change WHERE group_id = ? AND kind <= ? ORDER BY step LIMIT 1");
    if (first.Bind(group).Bind(lastOfItems).Next()) {
        step.FirstChange = Describe(static_cast<ChangeKind>(first.Small(0)));
        step.First = first.Small(1);
        step.FirstSubject = first.IsNull(3) ? SubjectOf(first.Blob(2)) : std::string(first.Text(3));
    }
    return Failed(count.Result()) ? count.Result() : first.Result();
}

// The kinds that the program took away from it just before, in the same step.
Status ReadTagsTaken(Database& database, std::int64_t group, ItemImage& image) {
    Query query(database, "SELECT image FROM journal_change WHERE group_id = ? AND kind = ? AND oid = ?");
    query.Bind(group).Bind(static_cast<std::int64_t>(ChangeKind::TagRemoved)).Bind(image.Item.Item);
    while (query.Next()) {
        TagPlace place;
        if (!DecodeTag(query.Blob(0), place)) {
            return Status::Corrupt;
        }
        image.Tags.push_back(place);
    }
    return query.Result();
}

// The newest picture of it; NotFound when there is none.
Status FindImage(Database& database, Oid oid, ItemImage& image) {
    Query query(database, "SELECT image, sum IS row_sum(group_id, step, kind, oid, last_oid, image), group_id"
                          " FROM journal_change WHERE oid = ? AND kind IN (?, ?) ORDER BY group_id DESC, step DESC"
                          " LIMIT 1");
    query.Bind(oid);
    query.Bind(static_cast<std::int64_t>(ChangeKind::Changed)).Bind(static_cast<std::int64_t>(ChangeKind::Deleted));
    if (!query.Next()) {
        return Failed(query.Result()) ? query.Result() : Status::NotFound;
    }
    if (query.Small(1) == 0 || !DecodeImage(query.Blob(0), image) || image.Item.Item != oid) {
        return Status::Corrupt;
    }
    return ReadTagsTaken(database, query.Integer(2), image);
}

Status PutBack(StoreCore& core, ItemImage& image) {
    StoredItem& item = image.Item;
    std::string fault;
    StoredItem now;
    Status status = core.Items.Read(item.Item, Ink::Leave, now);
    if (status == Status::NotFound) {
        status = core.BringBack(image);
    } else if (Succeeded(status)) {
        status = core.ChangeItem(now, item, image.HasInk ? Ink::Take : Ink::Leave, image.Source, fault);
    }
    for (const TagPlace& place : image.Tags) {
        if (Succeeded(status)) {
            status = core.WishTagBack(item.Item, place, true);
        }
    }
    return status;
}

} // namespace

Status ListHistory(const StorePtr& store, int most, std::vector<PastStep>& steps) {
    Database& database = CoreOf(*store).Db;
    steps.clear();
    Query query(database, "SELECT id, time, name, undone FROM journal_group ORDER BY id DESC LIMIT ?");
    query.Bind(most);
    while (query.Next()) {
        PastStep step;
        step.Time = query.Integer(1);
        step.Name = query.Text(2);
        step.IsUndone = query.Small(3) != 0;
        if (const Status status = ReadChanges(database, query.Integer(0), step); Failed(status)) {
            return status;
        }
        steps.push_back(std::move(step));
    }
    return query.Result();
}

Status RestoreItem(const StorePtr& store, Oid oid) {
    StoreCore& core = CoreOf(*store);
    return core.RunChange(kNameOfRestoring, [&core, oid] {
        ItemImage image;
        const Status status = FindImage(core.Db, oid, image);
        return Succeeded(status) ? PutBack(core, image) : status;
    });
}

} // namespace tavo::outlook
