// Where the hands of the analog clock lie.
#pragma once

#include "platform/geometry.h"
#include "platform/system_time.h"

namespace tavo {

// Angles in degrees clockwise from twelve o'clock.
int HourHandAngle(const SYSTEMTIME& time);
int MinuteHandAngle(const SYSTEMTIME& time);
int SecondHandAngle(const SYSTEMTIME& time);

constexpr int kHourHandLength = 45;
constexpr int kMinuteHandLength = 60;
constexpr int kSecondHandLength = 60;

// A hand runs from its base, near the centre, to its tip; the side points lie on either side of the base.
struct HandPoints {
    Point Tip;
    Point Base;
    Point FirstSide;
    Point SecondSide;
};

HandPoints PlaceHand(int angle, int length);

} // namespace tavo
