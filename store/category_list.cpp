// The list, its lookup and its reports.
#include "store/category_list.h"

#include "store/outlook_session.h"

#include <algorithm>
#include <utility>

namespace tavo {

// The mirror's answers are not looked at: the list is the truth, and the next start rebuilds the mirror from it.

void CategoryList::Insert(std::size_t index, Oid oid) {
    Oids.insert(Oids.begin() + static_cast<std::ptrdiff_t>(index), oid);
    ++Counts[oid];
    if (ITagMirror* mirror = MirrorToTell(); mirror != nullptr) {
        static_cast<void>(mirror->ReportInserted(List, static_cast<std::int32_t>(index), oid));
    }
}

void CategoryList::RemoveAt(std::size_t index) {
    const Oid oid = Oids[index];
    Oids.erase(Oids.begin() + static_cast<std::ptrdiff_t>(index));
    if (const auto count = Counts.find(oid); --count->second == 0) {
        Counts.erase(count);
    }
    if (ITagMirror* mirror = MirrorToTell(); mirror != nullptr) {
        static_cast<void>(mirror->ReportRemoved(List, static_cast<std::int32_t>(index), oid));
    }
}

std::optional<std::size_t> CategoryList::Find(Oid oid) const {
    if (!Contains(oid)) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(std::find(Oids.begin(), Oids.end(), oid) - Oids.begin());
}

bool CategoryList::RemoveFirst(Oid oid) {
    const std::optional<std::size_t> place = Find(oid);
    if (place) {
        RemoveAt(*place);
    }
    return place.has_value();
}

void CategoryList::Replace(std::vector<Oid> oids) {
    Oids = std::move(oids);
    Counts.clear();
    for (const Oid oid : Oids) {
        ++Counts[oid];
    }
    if (ITagMirror* mirror = MirrorToTell(); mirror != nullptr) {
        static_cast<void>(mirror->ReplaceList(List, Oids));
    }
}

ITagMirror* CategoryList::MirrorToTell() {
    if (Holding) {
        ChangedMeanwhile = true;
        return nullptr;
    }
    return Store.Tags();
}

void CategoryList::ReportHeld() {
    Holding = false;
    const bool changed = std::exchange(ChangedMeanwhile, false);
    if (ITagMirror* mirror = Store.Tags(); changed && mirror != nullptr) {
        static_cast<void>(mirror->ReplaceList(List, Oids));
    }
}

} // namespace tavo
