// One list of OIDs that makes the appointments in it alarms, holidays or anniversaries.
#pragma once

#include "platform/outlook.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace tavo {

class OutlookSession;

// In order of insertion; an OID may stand in it more than once. The store's mirror is told of every change.
class CategoryList {
  public:
    // `store` carries the mirror; while it is not open nothing is told.
    CategoryList(TagList list, OutlookSession& store) : List(list), Store(store) {}

    CategoryList(const CategoryList&) = delete;
    CategoryList& operator=(const CategoryList&) = delete;

    std::size_t Size() const { return Oids.size(); }

    bool IsEmpty() const { return Oids.empty(); }

    Oid At(std::size_t index) const { return Oids[index]; }

    // In list order.
    std::span<const Oid> All() const { return Oids; }

    bool Contains(Oid oid) const { return Counts.contains(oid); }

    void Append(Oid oid) { Insert(Oids.size(), oid); }

    // Puts the OID before the one at this index; the size is allowed too.
    void Insert(std::size_t index, Oid oid);
    // Closes the gap.
    void RemoveAt(std::size_t index);
    // Where the first equal OID stands; nothing when there is none.
    std::optional<std::size_t> Find(Oid oid) const;
    // Removes the first equal OID. False when there is none.
    bool RemoveFirst(Oid oid);
    // Puts these OIDs in place of all it holds.
    void Replace(std::vector<Oid> oids);

    void RemoveAll() {
        if (!IsEmpty()) {
            Replace({});
        }
    }

    // While it lives, the mirror is not told of single changes; at its end it gets the list as a whole if that changed.
    // For many changes at once: each report is a write to the disk.
    class ReportOnce {
      public:
        explicit ReportOnce(CategoryList& list) : List(list) { List.Holding = true; }

        ~ReportOnce() { List.ReportHeld(); }

        ReportOnce(const ReportOnce&) = delete;
        ReportOnce& operator=(const ReportOnce&) = delete;

      private:
        CategoryList& List;
    };

  private:
    // Who is to be told of a change now; null for nobody.
    ITagMirror* MirrorToTell();
    void ReportHeld();

    TagList List;
    OutlookSession& Store;
    std::vector<Oid> Oids;
    std::unordered_map<Oid, std::uint32_t> Counts; // how often each stands in Oids
    bool Holding = false;
    bool ChangedMeanwhile = false;
};

} // namespace tavo
