// What the tests of prints ask of pages.
#pragma once

#include "host/print/page_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tavo::print::test {

constexpr double kSlack = 0.01; // points

inline DayNumber At(int year, int month, int day) {
    return rules::DayFromCivil(year, month, day);
}

inline PrintedEntry Entry(std::u16string_view subject, std::u16string_view start = u"",
                          outlook::MirroredKind kind = outlook::MirroredKind::Appointment) {
    PrintedEntry entry;
    entry.Subject = subject;
    entry.Start = start;
    entry.Time = start;
    entry.Kind = kind;
    return entry;
}

inline std::vector<std::u16string> TextsOf(const PrintedPage& page) {
    std::vector<std::u16string> texts;
    for (const PrintedText& text : page.Texts) {
        texts.push_back(text.Text);
    }
    return texts;
}

inline const PrintedText& Find(const PrintedPage& page, std::u16string_view words) {
    static const PrintedText none;
    const auto found =
        std::find_if(page.Texts.begin(), page.Texts.end(), [&](const PrintedText& text) { return text.Text == words; });
    EXPECT_NE(found, page.Texts.end()) << std::string(words.begin(), words.end());
    return found == page.Texts.end() ? none : *found;
}

inline void ExpectInside(const Box& place, double width, double height, double margin) {
    EXPECT_GE(place.Left, margin - kSlack);
    EXPECT_GE(place.Top, margin - kSlack);
    EXPECT_LE(place.Right(), width - margin + kSlack);
    EXPECT_LE(place.Bottom(), height - margin + kSlack);
}

// Nothing is in the margins.
inline void ExpectInsideMargins(const PrintedPage& page, double width, double height, double margin) {
    for (const PrintedText& text : page.Texts) {
        ExpectInside(text.Place, width, height, margin);
    }
    for (const PrintedInk& memo : page.Inks) {
        ExpectInside(memo.Place, width, height, margin);
    }
}

} // namespace tavo::print::test
