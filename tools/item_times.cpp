// What is not said is taken from the item, or is what is common.
#include "tools/item_times.h"

#include "host/rules/save_rules.h"
#include "tools/store_days.h"

namespace tavo::tools {
namespace {

using rules::DayNumber;
using rules::Seconds;
using rules::StoredItem;

constexpr Seconds kSecondsPerMinute = 60;
constexpr int kMinutesPerDay = 24 * 60;
constexpr Seconds kUsualLength = 60 * kSecondsPerMinute;

class Work {
  public:
    Work(const ItemOptions& options, const StoredItem* stored, const Moment& now)
        : Options(options), Start(options.Start.value_or(When())), End(options.End.value_or(When())), Stored(stored),
          Today(NumberOf(now.Date)) {}

    bool Do() {
        StartDay = Start.Date ? NumberOf(*Start.Date) : (Stored != nullptr ? rules::DayOf(Stored->Start) : Today);
        const bool hasTime = Start.Minute || End.Minute || (Options.For && !Options.For->IsDays);
        const bool wasAllDay = Stored == nullptr ? !Start.Minute : Stored->AllDay && !hasTime;
        Result.AllDay = Options.AllDay || wasAllDay;
        if (!(Result.AllDay ? SetDays() : SetMoments())) {
            return false;
        }
        if (Result.End < Result.Start) {
            return Refuse("It would end before it begins.");
        }
        return Result.End - Result.Start <= rules::kLongestAppointment || Refuse("It would last longer than 31 days.");
    }

    const ItemTimes& Get() const { return Result; }

    const std::string& GetFault() const { return Fault; }

  private:
    bool Refuse(const char* sentence) {
        Fault = sentence;
        return false;
    }

    bool SetDays() {
        if (End.Minute || (Options.For && !Options.For->IsDays)) {
            return Refuse("Say with --start at what time it begins.");
        }
        DayNumber last = StartDay;
        if (Options.End) {
            last = End.Date ? NumberOf(*End.Date) : StartDay;
        } else if (Options.For) {
            last += Options.For->Minutes / kMinutesPerDay - 1;
        } else if (Stored != nullptr) {
            last += rules::EndDayOf(Stored->Start, Stored->End) - rules::DayOf(Stored->Start);
        }
        Result.Start = rules::MidnightOf(StartDay);
        Result.End = last == StartDay ? Result.Start : rules::MidnightOf(last + 1);
        return last >= StartDay || Refuse("It would end before it begins.");
    }

    bool SetMoments() {
        const bool hadTime = Stored != nullptr && !Stored->AllDay;
        if (!Start.Minute && !hadTime) {
            return Refuse("Say with --start at what time it begins.");
        }
        const Seconds ofDay = Start.Minute ? *Start.Minute * kSecondsPerMinute : rules::TimeOfDay(Stored->Start);
        Result.Start = rules::MidnightOf(StartDay) + ofDay;
        if (Options.End) {
            return SetEnd(hadTime);
        }
        const Seconds usual = hadTime ? Stored->End - Stored->Start : kUsualLength;
        Result.End = Result.Start + (Options.For ? Options.For->Minutes * kSecondsPerMinute : usual);
        return true;
    }

    // An end without a day is the first such time from the start on.
    bool SetEnd(bool hadTime) {
        if (!End.Minute && !hadTime) {
            return Refuse("Say with --end at what time it ends.");
        }
        const Seconds ofDay = End.Minute ? *End.Minute * kSecondsPerMinute : rules::TimeOfDay(Stored->End);
        Result.End = rules::MidnightOf(End.Date ? NumberOf(*End.Date) : StartDay) + ofDay;
        if (!End.Date && Result.End < Result.Start) {
            Result.End += rules::kSecondsPerDay;
        }
        return true;
    }

    const ItemOptions& Options;
    When Start;
    When End;
    const StoredItem* Stored;
    DayNumber Today;
    DayNumber StartDay = 0;
    ItemTimes Result;
    std::string Fault;
};

} // namespace

std::optional<ItemTimes> WorkOutTimes(const ItemOptions& options, const StoredItem* stored, const Moment& now,
                                      std::string& error) {
    Work work(options, stored, now);
    if (work.Do()) {
        return work.Get();
    }
    error = work.GetFault();
    return std::nullopt;
}

} // namespace tavo::tools
