// Words become the RRULE that other calendars would write, which the import understands.
#include "tools/repeat_words.h"

#include "host/locale/ascii.h"
#include "host/locale/harmless_text.h"
#include "host/rules/rule_text.h"
#include "platform/outlook.h"
#include "tools/store_days.h"
#include "tools/written_words.h"

#include <algorithm>
#include <array>
#include <vector>

namespace tavo::tools {
namespace {

constexpr int kWeekdays = 7;
constexpr int kMostTimes = 9999;
constexpr int kMostPeriods = 999;
constexpr int kShortestMonth = 28;
constexpr std::array<std::string_view, kWeekdays> kRuleDays = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

// In words and in a rule, by the unit.
struct Period {
    Unit Name;
    std::string_view Word;
    std::string_view Frequency;
};

constexpr std::array<Period, 4> kPeriods{{{Unit::Day, "daily", "DAILY"},
                                          {Unit::Week, "weekly", "WEEKLY"},
                                          {Unit::Month, "monthly", "MONTHLY"},
                                          {Unit::Year, "yearly", "YEARLY"}}};

class Reader {
  public:
    Reader(std::string_view text, const Moment& now) : Words(SplitWords(text)), Now(now) {}

    bool Read(RepeatRule& rule) {
        if (!ReadPeriod() || !ReadDays() || !ReadEnd()) {
            return false;
        }
        if (Next < Words.size()) {
            return Refuse("\"" + Words[Next] + "\" cannot stand there");
        }
        rule.InWords = true;
        rule.WeekdayMask = Mask;
        rule.Value = "FREQ=" + std::string(Frequency);
        if (Interval > 1) {
            rule.Value += ";INTERVAL=" + std::to_string(Interval);
        }
        for (std::size_t day = 0; day < kRuleDays.size(); ++day) {
            if ((Mask >> day & 1) != 0) {
                rule.Value += (rule.Value.find("BYDAY") == std::string::npos ? ";BYDAY=" : ",");
                rule.Value += kRuleDays[day];
            }
        }
        rule.Value += End;
        return true;
    }

    const std::string& GetFault() const { return Fault; }

  private:
    bool Refuse(std::string reason) {
        Fault = std::move(reason);
        return false;
    }

    std::string_view Peek(std::size_t ahead = 0) const {
        return Next + ahead < Words.size() ? std::string_view(Words[Next + ahead]) : std::string_view();
    }

    bool ReadPeriod() {
        const std::string_view word = Peek();
        if (word == "every" || word == "each") {
            ++Next;
            return ReadEvery();
        }
        if (word == "weekdays") {
            ++Next;
            return TakeWeekdays();
        }
        for (const Period& period : kPeriods) {
            if (period.Word == word) {
                ++Next;
                Frequency = period.Frequency;
                return true;
            }
        }
        return Refuse(word.empty() ? "it says nothing" : "\"" + std::string(word) + "\" is no repetition");
    }

    bool TakeWeekdays() {
        Frequency = "WEEKLY";
        Mask = kWeekdaysMask;
        return true;
    }

    // Behind "every": "day", "2 weeks", "other week", "weekday", "mon,wed".
    bool ReadEvery() {
        if (Peek() == "weekday") {
            ++Next;
            return TakeWeekdays();
        }
        if (FindWeekday(Peek()) >= 0) {
            Frequency = "WEEKLY";
            return true; // the days follow
        }
        if (Peek() == "other") {
            Interval = 2;
            ++Next;
        } else if (CountDigits(Peek()) > 0) {
            Interval = ReadWholeNumber(Peek()).value_or(0);
            ++Next;
            if (Interval < 1 || Interval > kMostPeriods) {
                return Refuse("a number of days, weeks, months or years goes from 1 to 999");
            }
        }
        const std::optional<Unit> unit = FindUnit(Peek());
        const auto* period = std::find_if(kPeriods.begin(), kPeriods.end(),
                                          [&unit](const Period& one) { return unit && one.Name == *unit; });
        if (period == kPeriods.end()) {
            return Refuse("behind \"every\" stand days, weeks, months, years or weekdays");
        }
        ++Next;
        Frequency = period->Frequency;
        return true;
    }

    // "on mon,wed and fri"; without "on" only where nothing else tells the days.
    bool ReadDays() {
        const bool hasOn = Peek() == "on";
        if (hasOn && (Frequency != "WEEKLY" || Mask != 0)) {
            return Refuse("only weeks have days of the week");
        }
        Next += hasOn ? 1 : 0;
        for (bool goesOn = Frequency == "WEEKLY" && Mask == 0; goesOn;) {
            const int weekday = FindWeekday(Peek());
            Mask |= weekday >= 0 ? 1 << weekday : 0;
            goesOn = weekday >= 0 || (Mask != 0 && Peek() == "and");
            Next += goesOn ? 1 : 0;
        }
        return !hasOn || Mask != 0 || Refuse("behind \"on\" stand weekdays");
    }

    bool ReadEnd() {
        if (Peek() == "until") {
            return ReadUntil();
        }
        Next += Peek() == "for" ? 1 : 0;
        if (Peek(1) == "times" || Peek(1) == "time") {
            const int times = ReadWholeNumber(Peek()).value_or(0);
            Next += 2;
            End = ";COUNT=" + std::to_string(times);
            return (times >= 1 && times <= kMostTimes) || Refuse("how many times goes from 1 to 9999");
        }
        return true;
    }

    bool ReadUntil() {
        std::string text;
        for (++Next; Next < Words.size(); ++Next) {
            text += (text.empty() ? "" : " ") + Words[Next];
        }
        std::string error;
        const std::optional<When> when = ReadWhen(text, Now, error);
        if (!when || !when->Date || when->Minute) {
            return Refuse(when ? "behind \"until\" stands a day without a time" : error);
        }
        std::string day = WriteIsoDay(*when->Date);
        std::erase(day, '-');
        End = ";UNTIL=" + day;
        return true;
    }

    std::vector<std::string> Words;
    Moment Now;
    std::size_t Next = 0;
    std::string_view Frequency;
    int Interval = 1;
    int Mask = 0;
    std::string End;
    std::string Fault;
};

bool ReadRuleValue(std::string_view text, RepeatRule& rule, std::string& fault) {
    constexpr std::string_view name = "RRULE:";
    text = locale::TrimBlanks(text);
    if (locale::EqualsIgnoringCase(text.substr(0, name.size()), name)) {
        text.remove_prefix(name.size());
    }
    rule.Value = text;
    if (!locale::IsHarmless(text)) { // a line end would begin another line
        fault = "it holds characters that no rule has";
        return false;
    }
    rules::RuleText read;
    return rules::ReadRuleText(text, read, fault);
}

} // namespace

std::optional<RepeatRule> ReadRepeat(std::string_view text, const Moment& now, std::string& error) {
    RepeatRule rule;
    std::string fault;
    if (text.find('=') != std::string_view::npos) {
        if (ReadRuleValue(text, rule, fault)) {
            return rule;
        }
        fault = fault.empty() ? "it is no rule of iCalendar" : fault;
    } else {
        Reader reader(text, now);
        if (reader.Read(rule)) {
            return rule;
        }
        fault = reader.GetFault();
    }
    if (fault.ends_with('.')) { // a sentence about the day of its end
        error = fault;
        return std::nullopt;
    }
    error = "\"" + std::string(text) + "\" cannot be read: " + fault +
            ". Write it like daily, weekdays, \"weekly on mon,wed\", \"every 2 weeks until 1 dec\" or \"monthly 10"
            " times\".";
    return std::nullopt;
}

rules::DayNumber FindFirstDay(const RepeatRule& rule, rules::DayNumber start) {
    while (rule.WeekdayMask != 0 && (rule.WeekdayMask >> rules::WeekdayOf(start) & 1) == 0) {
        ++start;
    }
    return start;
}

std::string WriteRule(const RepeatRule& rule, rules::DayNumber start) {
    const rules::CivilDate date = rules::CivilFromDay(start);
    if (!rule.InWords || date.Day <= kShortestMonth) {
        return rule.Value;
    }
    if (rule.Value.starts_with("FREQ=MONTHLY")) {
        constexpr int longestMonth = 31;
        std::string days = ";BYMONTHDAY=28";
        for (int day = kShortestMonth + 1; day <= date.Day; ++day) {
            days += "," + std::to_string(day);
        }
        return rule.Value + (date.Day == longestMonth ? ";BYMONTHDAY=-1" : days + ";BYSETPOS=-1");
    }
    const bool isLeapDay = rule.Value.starts_with("FREQ=YEARLY") && date.Month == 2;
    return rule.Value + (isLeapDay ? ";BYMONTH=2;BYMONTHDAY=-1" : "");
}

} // namespace tavo::tools
