// What follows from a restriction for the span of time that has to be read, and joining two of them.
#include "host/rules/restriction.h"

#include <algorithm>

namespace tavo::rules {

namespace {

constexpr std::size_t kMaxAlternatives = 4096;

// The weakest of the alternatives' strongest bounds.
template <class Pick> Seconds WeakestLow(const Restriction& restriction, Pick&& pick) {
    if (restriction.Alternatives.empty()) {
        return kLowestTime;
    }
    Seconds weakest = kHighestTime;
    for (const Conjunction& alternative : restriction.Alternatives) {
        Seconds low = kLowestTime;
        for (const Condition& condition : alternative) {
            low = std::max(low, condition.Outside ? kLowestTime : pick(condition));
        }
        weakest = std::min(weakest, low);
    }
    return weakest;
}

} // namespace

Seconds Restriction::LowestStart() const {
    return WeakestLow(*this, [](const Condition& condition) {
        return condition.Subject == Property::Start ? condition.Low : kLowestTime;
    });
}

Seconds Restriction::LowestEnd() const {
    return WeakestLow(*this, [](const Condition& condition) {
        // Nothing ends before it starts.
        return condition.Subject == Property::End || condition.Subject == Property::Start ? condition.Low : kLowestTime;
    });
}

Seconds Restriction::HighestStart() const {
    if (Alternatives.empty()) {
        return kHighestTime;
    }
    Seconds weakest = kLowestTime;
    for (const Conjunction& alternative : Alternatives) {
        Seconds high = kHighestTime;
        for (const Condition& condition : alternative) {
            if (condition.Outside) {
                continue;
            }
            if (condition.Subject == Property::Start) {
                high = std::min(high, condition.High);
            } else if (condition.Subject == Property::End && condition.High < kHighestTime) {
                // Compared as the last second of the day before, an end may lie one second later.
                high = std::min(high, condition.High + 1);
            }
        }
        weakest = std::max(weakest, high);
    }
    return weakest;
}

bool Restriction::ComparesTimesOnly() const {
    return std::all_of(Alternatives.begin(), Alternatives.end(), [](const Conjunction& alternative) {
        return std::all_of(alternative.begin(), alternative.end(), [](const Condition& condition) {
            return condition.Subject == Property::Start || condition.Subject == Property::End;
        });
    });
}

Status CombineRestrictions(const Restriction& left, const Restriction& right, Restriction& both) {
    if (left.Alternatives.empty() || right.Alternatives.empty()) {
        both = left.Alternatives.empty() ? right : left;
        return Status::Ok;
    }
    if (left.Alternatives.size() * right.Alternatives.size() > kMaxAlternatives) {
        return Status::TooLarge;
    }
    Restriction combined;
    for (const Conjunction& one : left.Alternatives) {
        for (const Conjunction& other : right.Alternatives) {
            combined.Alternatives.push_back(one);
            Conjunction& alternative = combined.Alternatives.back();
            alternative.insert(alternative.end(), other.begin(), other.end());
        }
    }
    both = std::move(combined);
    return Status::Ok;
}

} // namespace tavo::rules
