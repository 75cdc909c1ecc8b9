// What each verdict means to a person, and which one a failure of the store is.
#include "host/outlook/verdict_words.h"

namespace tavo::outlook {

Diagnosis DescribeVerdict(Verdict state) {
    switch (state) {
    case Verdict::Ok:
        return {state, "The store is in good order.", "", {}};
    case Verdict::LeavesOut:
        return {state,
                "The store is in good order, but something in it cannot be shown: it is left out of listings and"
                " reminders.",
                "Import a mended calendar with it again, or take the import back with Undo; all else works.",
                {}};
    case Verdict::Blemished:
        return {state,
                "The store is in good order, but a time zone or a step of undo in it has changed by itself.",
                "Nothing has to be put back: look over what is named here; all else works.",
                {}};
    case Verdict::Altered:
        return {state,
                "The store works, but something in its entries has changed by itself on the disk.",
                "Look over the entries that are named here, change something in each and save it; all else is as it"
                " was saved.",
                {}};
    case Verdict::Missing:
        return {state, "There is no store yet.", "It is made when Tavo Calendar starts or a calendar is imported.", {}};
    case Verdict::Damaged:
        return {state,
                "The store file is damaged.",
                "Keep a copy of the file, put the latest backup in its place, and import newer calendars again.",
                {}};
    case Verdict::Newer:
        return {state,
                "The store was written by a newer version of Tavo Calendar.",
                "Install that version or a later one; nothing was changed.",
                {}};
    case Verdict::NotOurs:
        return {state, "The file is not a store of Tavo Calendar.", "Move it out of the way; it was not changed.", {}};
    case Verdict::Locked:
        return {
            state, "Another program holds the store.", "Close the other program, or wait for it, and try again.", {}};
    case Verdict::ReadOnly:
        return {state,
                "The store cannot be written.",
                "Make the file and its folder writable for you, or move them to a disk that can be written.",
                {}};
    case Verdict::DiskFull:
        return {state, "The disk with the store is full.", "Make room on it and try again; nothing was lost.", {}};
    case Verdict::Unreadable:
        return {state, "The store file cannot be read.", "Make the file and its folder readable for you.", {}};
    case Verdict::Exposed:
        return {state,
                "The folder of the store belongs to someone else, or others may write there.",
                "Make the folder yours (chown) and close it to others (chmod go-w).",
                {}};
    }
    return {};
}

Verdict VerdictOf(Status status) {
    switch (status) {
    case Status::Ok:
    case Status::False:
        return Verdict::Ok;
    case Status::NotFound:
        return Verdict::Missing;
    case Status::Corrupt:
        return Verdict::Damaged;
    case Status::NewerVersion:
        return Verdict::Newer;
    case Status::NotOurs:
        return Verdict::NotOurs;
    case Status::Locked:
        return Verdict::Locked;
    case Status::DiskFull:
        return Verdict::DiskFull;
    case Status::AccessDenied:
        return Verdict::Unreadable;
    default:
        return Verdict::Unreadable;
    }
}

} // namespace tavo::outlook
