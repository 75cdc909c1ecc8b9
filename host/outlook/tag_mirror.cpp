// Lists are kept in order by widely spaced places, so that an insertion moves nothing.
#include "host/outlook/tag_mirror.h"

#include "host/outlook/store_core.h"

namespace tavo::outlook {

namespace {

constexpr std::int64_t kPlaceStep = 1 << 20;

std::int64_t NumberOf(TagList list) {
    return static_cast<std::int64_t>(list);
}

} // namespace

// Within a group: as if the old list were emptied from its end, and the new one built from its beginning.
Status TagMirror::NoteReplacement(TagList list, std::span<const Oid> oids) {
    std::vector<Oid> before;
    Query read(Core.Db, "SELECT oid FROM tag WHERE list = ? ORDER BY place");
    read.Bind(NumberOf(list));
    while (read.Next()) {
        before.push_back(read.Small(0));
    }
    Status status = read.Result();
    for (std::size_t index = before.size(); index > 0 && Succeeded(status); --index) {
        const auto position = static_cast<std::int32_t>(index - 1);
        status = Core.NoteTag(ChangeKind::TagRemoved, before[index - 1], {list, position});
    }
    for (std::size_t index = 0; index < oids.size() && Succeeded(status); ++index) {
        status = Core.NoteTag(ChangeKind::TagInserted, oids[index], {list, static_cast<std::int32_t>(index)});
    }
    return status;
}

Status TagMirror::ReplaceList(TagList list, std::span<const Oid> oids) {
    return Core.RunQuietly([&] {
        // Rebuilt at every start, and mostly the same: what is the same is not written.
        Query read(Core.Db, "SELECT oid FROM tag WHERE list = ? ORDER BY place");
        read.Bind(NumberOf(list));
        std::size_t same = 0;
        while (same < oids.size() && read.Next() && read.Small(0) == oids[same]) {
            ++same;
        }
        if (same == oids.size() && !read.Next()) {
            return read.Result();
        }
        if (const Status status = Core.InGroup() ? NoteReplacement(list, oids) : Status::Ok; Failed(status)) {
            return status;
        }
        return WriteList(list, oids);
    });
}

Status TagMirror::WriteList(TagList list, std::span<const Oid> oids) {
    Query clear(Core.Db, "DELETE FROM tag WHERE list = ?");
    Status status = clear.Bind(NumberOf(list)).Finish();
    std::int64_t place = 0;
    Query add(Core.Db, "INSERT INTO tag(list, place, oid) VALUES (?, ?, ?)");
    for (const Oid oid : oids) {
        if (Succeeded(status)) {
            status = add.Bind(NumberOf(list)).Bind(place += kPlaceStep).Bind(oid).Finish();
        }
    }
    return status;
}

Status TagMirror::Renumber(TagList list) {
    std::vector<Oid> oids;
    Query read(Core.Db, "SELECT oid FROM tag WHERE list = ? ORDER BY place");
    read.Bind(NumberOf(list));
    while (read.Next()) {
        oids.push_back(read.Small(0));
    }
    return Failed(read.Result()) ? read.Result() : WriteList(list, oids);
}

Status TagMirror::Insert(TagList list, std::int32_t position, Oid oid) {
    for (int attempt = 0; attempt < 2; ++attempt) {
        std::int64_t before = 0;
        std::int64_t after = 0;
        bool last = true;
        {
            Query count(Core.Db, "SELECT place FROM tag WHERE list = ? ORDER BY place LIMIT 2 OFFSET ?");
            count.Bind(NumberOf(list)).Bind(position > 0 ? position - 1 : 0);
            if (position > 0) {
                before = count.Next() ? count.Integer(0) : -1;
            }
            if (count.Next()) {
                after = count.Integer(0);
                last = false;
            }
        }
        if (before < 0) { // beyond the end: at the end
            Query end(Core.Db, "SELECT coalesce(max(place), 0) FROM tag WHERE list = ?");
            before = end.Bind(NumberOf(list)).Next() ? end.Integer(0) : 0;
        }
        const std::int64_t place = last ? before + kPlaceStep : before + (after - before) / 2;
        if (place > before) {
            Query add(Core.Db, "INSERT INTO tag(list, place, oid) VALUES (?, ?, ?)");
            return add.Bind(NumberOf(list)).Bind(place).Bind(oid).Finish();
        }
        if (const Status status = Renumber(list); Failed(status)) {
            return status;
        }
    }
    return Status::Fail;
}

Status TagMirror::Remove(TagList list, std::int32_t position, Oid oid) {
    std::int64_t place = -1;
    {
        Query find(Core.Db, "SELECT place, oid FROM tag WHERE list = ? ORDER BY place LIMIT 1 OFFSET ?");
        if (find.Bind(NumberOf(list)).Bind(position).Next() && find.Small(1) == oid) {
            place = find.Integer(0);
        }
    }
    if (place < 0) { // the mirror was behind: the first one there is
        Query find(Core.Db, "SELECT min(place) FROM tag WHERE list = ? AND oid = ?");
        if (!find.Bind(NumberOf(list)).Bind(oid).Next() || find.IsNull(0)) {
            return Failed(find.Result()) ? find.Result() : Status::False;
        }
        place = find.Integer(0);
    }
    Query remove(Core.Db, "DELETE FROM tag WHERE list = ? AND place = ?");
    return remove.Bind(NumberOf(list)).Bind(place).Finish();
}

Status TagMirror::ReportInserted(TagList list, std::int32_t position, Oid oid) {
    return Core.RunQuietly([&] {
        const Status status = Insert(list, position, oid);
        return Succeeded(status) ? Core.NoteTag(ChangeKind::TagInserted, oid, {list, position}) : status;
    });
}

Status TagMirror::ReportRemoved(TagList list, std::int32_t position, Oid oid) {
    return Core.RunQuietly([&] {
        const Status status = Remove(list, position, oid);
        return status == Status::Ok ? Core.NoteTag(ChangeKind::TagRemoved, oid, {list, position}) : status;
    });
}

Status TagMirror::FindPlaces(Oid oid, std::vector<TagPlace>& places) {
    Query find(Core.Db, "SELECT list, (SELECT count(*) FROM tag AS other WHERE other.list = tag.list"
                        " AND other.place < tag.place) FROM tag WHERE oid = ? ORDER BY list, place");
    find.Bind(oid);
    while (find.Next()) {
        places.push_back({static_cast<TagList>(find.Small(0)), find.Small(1)});
    }
    return find.Result();
}

Status TagMirror::AddRequest(const TagRequest& request) {
    Query add(Core.Db, "INSERT INTO request(list, oid, wish, position) VALUES (?, ?, ?, ?)");
    add.Bind(NumberOf(request.List)).Bind(request.Item).Bind(request.Set ? 1 : 0).Bind(request.Position);
    Core.NoteRequest();
    return add.Finish();
}

Status TagMirror::GetRequests(std::vector<TagRequest>& requests) {
    requests.clear();
    Query read(Core.Db, "SELECT id, list, oid, wish, position FROM request ORDER BY id");
    while (read.Next()) {
        requests.push_back(
            {read.Integer(0), static_cast<TagList>(read.Small(1)), read.Small(2), read.Small(3) != 0, read.Small(4)});
    }
    return read.Result();
}

Status TagMirror::FinishRequests(std::int64_t lastId) {
    return Core.RunQuietly([&] {
        Query drop(Core.Db, "DELETE FROM request WHERE id <= ?");
        return drop.Bind(lastId).Finish();
    });
}

} // namespace tavo::outlook
