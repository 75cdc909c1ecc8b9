// Counts milliseconds of local time.
#include "host/files/scripted_clock.h"

#include "host/locale/calendar_math.h"

namespace tavo::files {

namespace {

constexpr std::int64_t kMillisecondsPerDay = std::int64_t{locale::kSecondsPerDay} * 1000;

} // namespace

SYSTEMTIME ScriptedClock::GetLocalTime() {
    const std::int64_t ofDay = (Milliseconds % kMillisecondsPerDay + kMillisecondsPerDay) % kMillisecondsPerDay;
    const auto day = static_cast<int>((Milliseconds - ofDay) / kMillisecondsPerDay);
    const locale::CivilDate date = locale::DateOfDayNumber(day);
    return {static_cast<std::uint16_t>(date.Year),
            static_cast<std::uint16_t>(date.Month),
            static_cast<std::uint16_t>(locale::WeekdayOfDayNumber(day)),
            static_cast<std::uint16_t>(date.Day),
            static_cast<std::uint16_t>(ofDay / 3'600'000),
            static_cast<std::uint16_t>(ofDay / 60'000 % 60),
            static_cast<std::uint16_t>(ofDay / 1000 % 60),
            static_cast<std::uint16_t>(ofDay % 1000)};
}

bool ScriptedClock::SetLocalTime(const SYSTEMTIME& time) {
    if (time.Year < 1 || !locale::IsDate(time.Year, time.Month, time.Day) || time.Hour > 23 || time.Minute > 59 ||
        time.Second > 59 || time.Milliseconds > 999) {
        return false;
    }
    Milliseconds = locale::DayNumberOf(time.Year, time.Month, time.Day) * kMillisecondsPerDay +
                   (time.Hour * 3600 + time.Minute * 60 + time.Second) * std::int64_t{1000} + time.Milliseconds;
    return true;
}

void ScriptedClock::Advance(std::chrono::milliseconds span) {
    Milliseconds += span.count();
    Ticks += static_cast<std::uint32_t>(span.count());
}

} // namespace tavo::files
