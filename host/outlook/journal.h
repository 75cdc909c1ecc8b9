// What each group of changes did and what was there before, so that it can be taken back.
#pragma once

#include "host/outlook/database.h"
#include "host/outlook/item_image.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tavo::outlook {

enum class ChangeKind {
    Created = 0,
    Changed = 1,
    Deleted = 2,
    TagInserted = 3,
    TagRemoved = 4,
    Note = 5, // something of the program's own, which the store keeps and does not understand
};

struct JournalChange {
    ChangeKind Kind = ChangeKind::Created;
    Oid First = 0; // created items may be a run of OIDs
    Oid Last = 0;
    std::vector<std::uint8_t> Image; // of what was there before; of tags: list and position; a note as it was given
};

class Journal {
  public:
    explicit Journal(Database& database) : Source(database) {}

    // The journal never falls below either of these.
    static constexpr std::int64_t kKeptGroups = 1000;
    static constexpr std::int64_t kKeptSeconds = 3600;

    // What is offered to be taken back: the newest groups of this run, and all of the last hour.
    static constexpr std::int64_t kOfferedGroups = 20;
    static constexpr std::int64_t kOfferedSeconds = 3600;

    // The run begins: groups that are there already count as older.
    Status BeginRun();

    void OpenGroup(std::u16string_view name);
    Status NoteCreated(Oid oid);
    Status NoteImage(ChangeKind kind, const ItemImage& image);
    Status NoteTag(ChangeKind kind, Oid oid, TagPlace place);
    Status AddNote(std::span<const std::uint8_t> note);

    bool HasChanges() const { return GroupId != 0; }

    // Where the open group stands, to go back to when a part of it is taken back.
    struct Mark {
        std::int64_t GroupId = 0;
        std::int64_t NextStep = 0;
        Oid CreatedFirst = 0;
        Oid CreatedLast = 0;
    };

    Mark SetMark() const { return {GroupId, NextStep, CreatedFirst, CreatedLast}; }

    void GoBackTo(const Mark& mark);
    // Writes what is still held back, and drops groups that are past both bounds.
    Status CloseGroup();

    // The newest group on offer that was not taken back; 0 when there is none.
    Status FindUndoable(std::int64_t& group, std::u16string& name);
    // Newest change first, one at a time: `step` is where the last one was, and starts as kNewestStep. Corrupt for one
    // that has changed by itself on the disk.
    Status ReadChangeBefore(std::int64_t group, std::int64_t& step, std::optional<JournalChange>& change);
    // Its notes, oldest first.
    Status ReadNotes(std::int64_t group, std::vector<std::vector<std::uint8_t>>& notes);
    // How many items and tags its changes are about.
    Status CountSteps(std::int64_t group, std::int32_t& count);
    // A change that was taken back is of no more use.
    Status DropChange(std::int64_t group, std::int64_t step);
    Status MarkUndone(std::int64_t group);

    static constexpr std::int64_t kNewestStep = INT64_MAX;

  private:
    Status WriteGroup();
    Status WriteCreated();
    Status Write(ChangeKind kind, Oid first, Oid last, std::span<const std::uint8_t> image);

    Database& Source;
    std::string GroupName;
    std::int64_t LastBefore = 0; // the newest group of the runs before
    std::int64_t GroupId = 0;    // 0 until the first change
    std::int64_t NextStep = 0;
    Oid CreatedFirst = 0; // a run of created items that is not written yet; 0 is none
    Oid CreatedLast = 0;
};

} // namespace tavo::outlook
