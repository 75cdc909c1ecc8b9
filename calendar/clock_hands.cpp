// The trigonometry of the clock's hands.
#include "calendar/clock_hands.h"

#include <cmath>

namespace tavo {

namespace {

constexpr Point kCentre{120, 135};
constexpr double kRadiansPerDegree = 0.01745327777777778; // kept: pi taken as 3.14159
constexpr double kBaseDistance = 3;

Point FromCentre(int angle, double length) {
    const double radians = angle * kRadiansPerDegree;
    return {kCentre.X + static_cast<int>(std::sin(radians) * length),
            kCentre.Y - static_cast<int>(std::cos(radians) * length)};
}

// True when the angle lies in the sector or in the one opposite.
bool LiesIn(int angle, int above, int upTo) {
    return (angle > above && angle <= upTo) || (angle > above + 180 && angle <= upTo + 180);
}

// How far the first side point lies from the base; the second lies as far on the other side.
Point SideOffset(int angle) {
    if (LiesIn(angle, 20, 70)) {
        return {-2, -2};
    }
    if (LiesIn(angle, 70, 110)) {
        return {0, -2};
    }
    if (LiesIn(angle, 110, 160)) {
        return {2, -2};
    }
    return {-2, 0};
}

} // namespace

int HourHandAngle(const SYSTEMTIME& time) {
    return (time.Hour * 30) % 360 + time.Minute / 2;
}

int MinuteHandAngle(const SYSTEMTIME& time) {
    return time.Minute * 6;
}

int SecondHandAngle(const SYSTEMTIME& time) {
    return time.Second * 6;
}

HandPoints PlaceHand(int angle, int length) {
    const Point base = FromCentre(angle, kBaseDistance);
    const Point offset = SideOffset(angle);
    return {FromCentre(angle, length),
            base,
            {base.X + offset.X, base.Y + offset.Y},
            {base.X - offset.X, base.Y - offset.Y}};
}

} // namespace tavo
