// What is to be printed, and on what.
#pragma once

#include "host/rules/wall_time.h"

namespace tavo::print {

using rules::DayNumber;

enum class PrintKind { Month, Week, Day, List };

// Of a sheet that stands upright; a month is printed across it.
struct Paper {
    double Width = 0; // points
    double Height = 0;
};

constexpr Paper kA4{595.28, 841.89};
constexpr Paper kLetter{612, 792};

constexpr bool IsAcross(PrintKind kind) {
    return kind == PrintKind::Month;
}

struct PrintRequest {
    PrintKind Kind = PrintKind::Month;
    DayNumber First = 0;   // a day of the month or week, the day itself, or the first of the list
    DayNumber Last = 0;    // of the list
    int FirstWeekday = 0;  // with which weeks begin; 0 Sunday
    Paper Sheet = kA4;     // of which the printer may leave a rim white:
    double Margin = 28.35; // on all sides, points
};

} // namespace tavo::print
