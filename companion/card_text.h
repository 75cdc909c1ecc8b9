// What a card says.
#pragma once

#include "host/reminders/desk.h"

#include <cstdint>
#include <string>

namespace tavo::companion {

// Harmless for any desktop, however the items' texts were made.
struct CardText {
    std::string Summary;    // one line
    std::string Body;       // further lines, joined by line feeds; perhaps none
    bool HasAnswers = true; // else it only tells something
};

// `today` is the device's clock: it decides what is called today and tomorrow.
CardText DescribeCard(const reminders::Card& card, std::int64_t nowWall);

} // namespace tavo::companion
