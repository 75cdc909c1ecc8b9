// The journal's two tables.
#include "host/outlook/journal.h"

#include "host/outlook/text.h"

#include <ctime>

namespace tavo::outlook {

Status Journal::BeginRun() {
    Query query(Source, "SELECT coalesce(max(id), 0) FROM journal_group");
    LastBefore = query.Next() ? query.Integer(0) : 0;
    return query.Result();
}

void Journal::OpenGroup(std::u16string_view name) {
    GroupName = ToUtf8(name);
    GroupId = 0;
    NextStep = 0;
    CreatedFirst = 0;
}

void Journal::GoBackTo(const Mark& mark) {
    GroupId = mark.GroupId;
    NextStep = mark.NextStep;
    CreatedFirst = mark.CreatedFirst;
    CreatedLast = mark.CreatedLast;
}

Status Journal::WriteGroup() {
    Query query(Source, "INSERT INTO journal_group(name, time, undone) VALUES (?, ?, 0)");
    const Status status = query.Bind(GroupName).Bind(static_cast<std::int64_t>(std::time(nullptr))).Finish();
    GroupId = Succeeded(status) ? sqlite3_last_insert_rowid(Source.Raw()) : 0;
    return status;
}

Status Journal::Write(ChangeKind kind, Oid first, Oid last, std::span<const std::uint8_t> image) {
    if (GroupId == 0) {
        if (const Status status = WriteGroup(); Failed(status)) {
            return status;
        }
    }
    Query query(Source, "INSERT INTO journal_change(group_id, step, kind, oid, last_oid, image, sum)"
                        " VALUES (?1, ?2, ?3, ?4, ?5, ?6, row_sum(?1, ?2, ?3, ?4, ?5, ?6))");
    query.Bind(GroupId).Bind(NextStep++).Bind(static_cast<std::int64_t>(kind)).Bind(first).Bind(last);
    return query.Bind(image).Finish();
}

Status Journal::WriteCreated() {
    if (CreatedFirst == 0) {
        return Status::Ok;
    }
    const Oid first = CreatedFirst;
    CreatedFirst = 0;
    return Write(ChangeKind::Created, first, CreatedLast, {});
}

Status Journal::NoteCreated(Oid oid) {
    if (GroupId == 0) {
        if (const Status status = WriteGroup(); Failed(status)) {
            return status;
        }
    }
    if (CreatedFirst != 0 && oid == CreatedLast + 1) {
        CreatedLast = oid;
        return Status::Ok;
    }
    const Status status = WriteCreated();
    CreatedFirst = oid;
    CreatedLast = oid;
    return status;
}

Status Journal::NoteImage(ChangeKind kind, const ItemImage& image) {
    const Status status = WriteCreated();
    return Succeeded(status) ? Write(kind, image.Item.Item, image.Item.Item, EncodeImage(image)) : status;
}

Status Journal::NoteTag(ChangeKind kind, Oid oid, TagPlace place) {
    const Status status = WriteCreated();
    return Succeeded(status) ? Write(kind, oid, oid, EncodeTag(place)) : status;
}

Status Journal::AddNote(std::span<const std::uint8_t> note) {
    const Status status = WriteCreated();
    return Succeeded(status) ? Write(ChangeKind::Note, 0, 0, note) : status;
}

Status Journal::CloseGroup() {
    Status status = WriteCreated();
    if (Succeeded(status)) {
        Query prune(Source, "DELETE FROM journal_group WHERE id <= ? AND time < ?");
        status = prune.Bind(GroupId - kKeptGroups)
                     .Bind(static_cast<std::int64_t>(std::time(nullptr)) - kKeptSeconds)
                     .Finish();
    }
    return status;
}

Status Journal::FindUndoable(std::int64_t& group, std::u16string& name) {
    group = 0;
    Query query(Source, "SELECT id, name FROM journal_group WHERE undone = 0 AND (time >= ? OR"
                        " (id > ? AND id > (SELECT max(id) FROM journal_group) - ?)) ORDER BY id DESC LIMIT 1");
    const std::int64_t anHourAgo = static_cast<std::int64_t>(std::time(nullptr)) - kOfferedSeconds;
    if (query.Bind(anHourAgo).Bind(LastBefore).Bind(kOfferedGroups).Next()) {
        group = query.Integer(0);
        name = ToUtf16(query.Text(1));
    }
    return query.Result();
}

Status Journal::ReadChangeBefore(std::int64_t group, std::int64_t& step, std::optional<JournalChange>& change) {
    change.reset();
    Query query(Source,
                "SELECT step, kind, oid, last_oid, image, sum IS row_sum(group_id, step, kind, oid, last_oid, image)"
                " FROM journal_change WHERE group_id = ? AND step < ? AND kind <> ? ORDER BY step DESC LIMIT 1");
    if (query.Bind(group).Bind(step).Bind(static_cast<std::int64_t>(ChangeKind::Note)).Next()) {
        if (query.Small(5) == 0) {
            return Status::Corrupt; // what it would bring back would be taken for good from then on
        }
        step = query.Integer(0);
        change.emplace();
        change->Kind = static_cast<ChangeKind>(query.Small(1));
        change->First = query.Small(2);
        change->Last = query.Small(3);
        const auto image = query.Blob(4);
        change->Image.assign(image.begin(), image.end());
    }
    return query.Result();
}

Status Journal::ReadNotes(std::int64_t group, std::vector<std::vector<std::uint8_t>>& notes) {
    notes.clear();
    Query query(Source, "SELECT image FROM journal_change WHERE group_id = ? AND kind = ? ORDER BY step");
    query.Bind(group).Bind(static_cast<std::int64_t>(ChangeKind::Note));
    while (query.Next()) {
        const auto note = query.Blob(0);
        notes.emplace_back(note.begin(), note.end());
    }
    return query.Result();
}

Status Journal::CountSteps(std::int64_t group, std::int32_t& count) {
    Query query(Source, "SELECT coalesce(sum(last_oid - oid + 1), 0) FROM journal_change"
                        " WHERE group_id = ? AND kind <> ?");
    if (query.Bind(group).Bind(static_cast<std::int64_t>(ChangeKind::Note)).Next()) {
        count = query.Small(0);
    }
    return query.Result();
}

Status Journal::DropChange(std::int64_t group, std::int64_t step) {
    Query drop(Source, "DELETE FROM journal_change WHERE group_id = ? AND step = ?");
    return drop.Bind(group).Bind(step).Finish();
}

Status Journal::MarkUndone(std::int64_t group) {
    Query mark(Source, "UPDATE journal_group SET undone = 1 WHERE id = ?");
    return mark.Bind(group).Finish();
}

} // namespace tavo::outlook
