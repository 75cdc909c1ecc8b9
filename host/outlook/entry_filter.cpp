// Comparing an entry with each condition.
#include "host/outlook/entry_filter.h"

#include "host/outlook/store_core.h"

#include <algorithm>

namespace tavo::outlook {

namespace {

bool Holds(Comparison comparison, int order) {
    switch (comparison) {
    case Comparison::Less:
        return order < 0;
    case Comparison::LessOrEqual:
        return order <= 0;
    case Comparison::Greater:
        return order > 0;
    case Comparison::GreaterOrEqual:
        return order >= 0;
    case Comparison::Equal:
        return order == 0;
    case Comparison::NotEqual:
        return order != 0;
    }
    return false;
}

} // namespace

bool EntryFilter::MatchesText(const Condition& condition, const Entry& entry) const {
    const std::u16string* text = nullptr;
    const StoredException* own = nullptr;
    if (entry.Kind == EntryKind::Moved) {
        const auto found = std::find_if(Loaded.Exceptions.begin(), Loaded.Exceptions.end(),
                                        [&](const StoredException& one) { return one.Original == entry.Original; });
        own = found != Loaded.Exceptions.end() ? &*found : nullptr;
    }
    switch (condition.Subject) {
    case Property::Subject:
        text = own != nullptr && own->Subject ? &*own->Subject : &Loaded.Subject;
        break;
    case Property::Location:
        text = own != nullptr && own->Location ? &*own->Location : &Loaded.Location;
        break;
    case Property::Categories:
        text = &Loaded.Categories;
        break;
    case Property::Body:
        text = &Loaded.Body;
        break;
    default:
        text = &Loaded.ReminderSound;
        break;
    }
    // An item without a value for the property never matches.
    return !text->empty() && Holds(condition.Text, text->compare(condition.Value));
}

bool EntryFilter::MatchesCondition(const Condition& condition, const Entry& entry) const {
    switch (condition.Subject) {
    case Property::Start:
        return IsInRange(condition, entry.Start);
    case Property::End:
        return IsInRange(condition, condition.WholeDays ? ComparedEnd(entry.Start, entry.End()) : entry.End());
    case Property::Oid:
        return IsInRange(condition, entry.Item);
    case Property::Duration:
        return IsInRange(condition, static_cast<std::int64_t>(entry.Length) / 60);
    case Property::IsRecurring:
        return IsInRange(condition, entry.Kind != EntryKind::Plain ? 1 : 0);
    case Property::AllDayEvent:
        return IsInRange(condition, Loaded.AllDay ? 1 : 0);
    case Property::BusyStatus:
        return IsInRange(condition, Loaded.BusyStatus);
    case Property::Sensitivity:
        return IsInRange(condition, Loaded.Sensitivity);
    case Property::ReminderSet:
        return IsInRange(condition, Loaded.ReminderSet ? 1 : 0);
    case Property::ReminderMinutesBeforeStart:
        return IsInRange(condition, Loaded.ReminderMinutes);
    case Property::ReminderOptions:
        return IsInRange(condition, Loaded.ReminderOptions);
    default:
        return MatchesText(condition, entry);
    }
}

bool EntryFilter::Matches(const Entry& entry) const {
    if (Asked.Alternatives.empty()) {
        return true;
    }
    return std::any_of(Asked.Alternatives.begin(), Asked.Alternatives.end(), [&](const Conjunction& alternative) {
        return std::all_of(alternative.begin(), alternative.end(),
                           [&](const Condition& condition) { return MatchesCondition(condition, entry); });
    });
}

Status EntryFilter::Apply(std::vector<Entry>& entries, std::size_t since) {
    std::size_t kept = since;
    for (std::size_t index = since; index < entries.size(); ++index) {
        const Entry entry = entries[index];
        if (!TimesOnly && Loaded.Item != entry.Item) {
            const Status status = Core.Items.Read(entry.Item, Ink::Leave, Loaded);
            if (status == Status::NotFound) {
                continue;
            }
            if (Failed(status)) {
                return status;
            }
        }
        if (Matches(entry)) {
            entries[kept++] = entry;
        }
    }
    entries.resize(kept);
    return Status::Ok;
}

} // namespace tavo::outlook
