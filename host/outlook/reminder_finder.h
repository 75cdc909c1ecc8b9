// Finds reminders in the store: what is due in a span of time, what is due next, and what one reminder says.
#pragma once

#include "host/outlook/store_core.h"
#include "host/reminders/reminder.h"

#include <functional>
#include <optional>
#include <vector>

namespace tavo::outlook {

class ReminderFinder {
  public:
    explicit ReminderFinder(StoreCore& core) : Core(core) {}

    using Visit = std::function<void(const reminders::DueReminder&)>;

    // Every reminder with after < due <= upTo; of items and occurrences, whatever their lead. Here and below, series
    // with a fault and those that take too long beside all others are left out (see ShareWork).
    Status FindDue(reminders::Moment after, reminders::Moment upTo, const Visit& visit);
    // Every reminder with due <= now < start; of each series the nearest few, so that a lead of years does not bring
    // thousands at once.
    Status FindAhead(reminders::Moment now, const Visit& visit);
    // When the next reminder after this moment is due; nothing when there is none. Where series take long to look
    // through it may be an earlier moment, up to which nothing is due and at which to ask again.
    Status FindNext(reminders::Moment after, std::optional<reminders::Moment>& next);
    // When it is due in the zone of today; nothing when its item is gone or does not remind.
    Status FindTime(const reminders::ReminderKey& key, std::optional<reminders::Moment>& due);
    // Nothing when there is no such reminder any more.
    Status Describe(const reminders::ReminderKey& key, std::optional<reminders::ReminderText>& text);

  private:
    struct RemindingSeries {
        SeriesRow Row;
        reminders::Moment Lead = 0;
    };

    // Starts on the device's clock; the end is later by each item's lead.
    struct PlainSpan {
        std::int64_t From = 0;
        std::int64_t To = 0;
        bool FromMoves = false; // as the end does
        bool LeadsOnly = false; // what reminds before its start
    };

    struct Item; // the columns that a description needs

    reminders::DueReminder MakePlain(Oid oid, ZoneId zone, std::int64_t own, reminders::Moment lead);
    Status MakeOccurrence(const RemindingSeries& series, const Entry& entry, reminders::DueReminder& reminder);
    reminders::Moment DueOf(ZoneId zone, std::int64_t own, reminders::Moment lead);
    Status ReadSeries(std::int64_t from);
    // Plain items in a span, in no order.
    Status WalkPlain(const PlainSpan& span, const Visit& visit);
    // Occurrences of one series that start in a span on the device's clock; none when the budget does not suffice.
    Status WalkSeries(const RemindingSeries& series, std::int64_t from, std::int64_t to, ExpansionBudget& budget,
                      const Visit& visit);
    // WalkSeries of all series, around their starts between two times and the lead. Gives those that were left out.
    Status WalkAll(std::int64_t from, std::int64_t to, const Visit& visit, std::vector<std::size_t>& leftOut);
    // The nearest occurrences of one series that are due but have not started; none when the budget does not suffice.
    Status WalkAhead(const RemindingSeries& series, reminders::Moment now, ExpansionBudget& budget, const Visit& visit);
    Status FindNextPlain(reminders::Moment after, reminders::Moment& best);
    Status FindNextOfSeries(reminders::Moment after, reminders::Moment& best);
    Status DescribePlain(const reminders::ReminderKey& key, Item& item, bool& stands);
    Status DescribeOccurrence(const reminders::ReminderKey& key, Item& item, bool& stands);

    StoreCore& Core;
    std::vector<RemindingSeries> Series;
    std::int64_t SeriesFrom = 0;   // what ends before is left out
    std::int64_t SeriesState = -1; // the count of item changes for which it holds
    std::vector<Entry> Entries;
};

} // namespace tavo::outlook
