// How a stroke lies to a point, a line or an area.
#include "host/ink/page.h"

#include <algorithm>
#include <cmath>

namespace tavo::ink {
namespace {

struct Spot {
    double X = 0;
    double Y = 0;
};

Spot operator-(Spot left, Spot right) {
    return {left.X - right.X, left.Y - right.Y};
}

double Cross(Spot left, Spot right) {
    return left.X * right.Y - left.Y * right.X;
}

double DistanceToSegment(Spot point, Spot from, Spot to) {
    const Spot along = to - from;
    const Spot offset = point - from;
    const double square = along.X * along.X + along.Y * along.Y;
    const double part = square > 0 ? std::clamp((offset.X * along.X + offset.Y * along.Y) / square, 0.0, 1.0) : 0.0;
    return std::hypot(offset.X - part * along.X, offset.Y - part * along.Y);
}

bool Cross(Spot from, Spot to, Spot otherFrom, Spot otherTo) {
    const double one = Cross(to - from, otherFrom - from);
    const double two = Cross(to - from, otherTo - from);
    const double three = Cross(otherTo - otherFrom, from - otherFrom);
    const double four = Cross(otherTo - otherFrom, to - otherFrom);
    return one * two < 0 && three * four < 0;
}

double Distance(Spot from, Spot to, Spot otherFrom, Spot otherTo) {
    if (Cross(from, to, otherFrom, otherTo)) {
        return 0;
    }
    return std::min({DistanceToSegment(from, otherFrom, otherTo), DistanceToSegment(to, otherFrom, otherTo),
                     DistanceToSegment(otherFrom, from, to), DistanceToSegment(otherTo, from, to)});
}

// Narrows the part of a line from `enter` to `leave` to where it lies between two bounds.
void Narrow(double from, double step, double low, double high, double& enter, double& leave) {
    if (step == 0) {
        leave = from < low || from > high ? enter : leave;
        return;
    }
    const double one = (low - from) / step;
    const double other = (high - from) / step;
    enter = std::max(enter, std::min(one, other));
    leave = std::min(leave, std::max(one, other));
}

// How much of the segment lies in the area, 0 to 1.
double PartInside(Spot from, Spot to, const Box& area) {
    double enter = 0;
    double leave = 1;
    Narrow(from.X, to.X - from.X, area.Left, area.Right, enter, leave);
    Narrow(from.Y, to.Y - from.Y, area.Top, area.Bottom, enter, leave);
    return std::max(leave - enter, 0.0);
}

Spot SpotOf(const PlacedStroke& stroke, std::size_t index) {
    const InkPoint& point = stroke.Body->Points[index];
    return {static_cast<double>(point.X + stroke.Right), static_cast<double>(point.Y + stroke.Down)};
}

} // namespace

bool PassesNear(const PlacedStroke& stroke, double fromX, double fromY, double toX, double toY, double within) {
    const Box& bounds = stroke.Bounds;
    if (std::max(fromX, toX) < bounds.Left - within || std::min(fromX, toX) > bounds.Right + within ||
        std::max(fromY, toY) < bounds.Top - within || std::min(fromY, toY) > bounds.Bottom + within) {
        return false;
    }
    const double reach = within + Reach(stroke.Body->Tool);
    Spot before = SpotOf(stroke, 0);
    for (std::size_t i = 0; i < stroke.Body->Points.size(); ++i) {
        const Spot place = SpotOf(stroke, i);
        if (Distance(before, place, {fromX, fromY}, {toX, toY}) <= reach) {
            return true;
        }
        before = place;
    }
    return false;
}

bool LiesMostlyIn(const PlacedStroke& stroke, const Box& area) {
    if (!area.Meets(stroke.Bounds)) {
        return false;
    }
    double inside = 0;
    double all = 0;
    Spot before = SpotOf(stroke, 0);
    const bool startsInside = area.Contains(before.X, before.Y);
    for (std::size_t i = 1; i < stroke.Body->Points.size(); ++i) {
        const Spot spot = SpotOf(stroke, i);
        const double length = std::hypot(spot.X - before.X, spot.Y - before.Y);
        all += length;
        inside += length * PartInside(before, spot, area);
        before = spot;
    }
    return all > 0 ? inside * 2 > all : startsInside;
}

} // namespace tavo::ink
