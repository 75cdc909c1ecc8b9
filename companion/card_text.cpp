// Times and titles as lines of text.
#include "companion/card_text.h"

#include "host/locale/harmless_text.h"
#include "host/rules/wall_time.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tavo::companion {

namespace {

constexpr std::size_t kMostLines = 8; // of a list; desktops cut what is longer
constexpr std::array<const char*, 7> kWeekdays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<const char*, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string DescribeTime(std::int64_t wall) {
    const auto minutes = static_cast<int>(rules::TimeOfDay(wall) / 60);
    const int hour = minutes / 60 % 12;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%d:%02d %s", hour == 0 ? 12 : hour, minutes % 60,
                  minutes < 12 * 60 ? "AM" : "PM");
    return text.data();
}

std::string DescribeDay(std::int64_t wall, std::int64_t nowWall) {
    const rules::DayNumber day = rules::DayOf(wall);
    const rules::DayNumber today = rules::DayOf(nowWall);
    if (day == today) {
        return "Today";
    }
    if (day == today + 1) {
        return "Tomorrow";
    }
    const rules::CivilDate date = rules::CivilFromDay(day);
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%s, %s %d, %d", kWeekdays[static_cast<std::size_t>(rules::WeekdayOf(day))],
                  kMonths[static_cast<std::size_t>(date.Month - 1)], date.Day, date.Year);
    return text.data();
}

std::string DescribeStart(const reminders::ReminderText& text, std::int64_t nowWall) {
    const std::string day = DescribeDay(text.StartWall, nowWall);
    return text.AllDay ? day : day + ", " + DescribeTime(text.StartWall);
}

// White space of any kind is a blank here, so that nothing passes for a line of its own.
std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char letter) { return letter >= '\t' && letter <= '\r'; }, ' ');
    return locale::MakeHarmless(text);
}

std::string TitleOf(const reminders::CardLine& line) {
    const std::string title = line.Text.Title.empty() ? "No Subject" : OneLine(line.Text.Title);
    return line.Again ? "Again: " + title : title;
}

std::string CountOf(std::size_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

std::string DescribeLines(const reminders::Card& card, std::int64_t nowWall) {
    std::string body;
    for (std::size_t index = 0; index < card.Lines.size() && index < kMostLines; ++index) {
        const reminders::CardLine& line = card.Lines[index];
        body += (index == 0 ? "" : "\n") + DescribeStart(line.Text, nowWall) + "  " + TitleOf(line);
    }
    if (card.Lines.size() > kMostLines) {
        body += "\nand " + std::to_string(card.Lines.size() - kMostLines) + " more";
    }
    return body;
}

} // namespace

CardText DescribeCard(const reminders::Card& card, std::int64_t nowWall) {
    if (card.Kind == reminders::CardKind::Single && !card.Lines.empty()) {
        const reminders::CardLine& line = card.Lines.front();
        const std::string place = line.Text.Location.empty() ? "" : "\n" + OneLine(line.Text.Location);
        return {TitleOf(line), DescribeStart(line.Text, nowWall) + place};
    }
    const bool missed = card.Kind == reminders::CardKind::Missed;
    return {missed ? CountOf(card.Lines.size(), "missed reminder", "missed reminders")
                   : CountOf(card.Lines.size(), "reminder", "reminders"),
            DescribeLines(card, nowWall)};
}

} // namespace tavo::companion
