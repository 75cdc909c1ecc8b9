// Where the toolkit's events come in.
#pragma once

#include "host/shell/event_source.h"

#include <QTimer>

#include <functional>

namespace tavo::qt {

class EventSource final : public shell::IEventSource {
  public:
    EventSource();

    // Called before events are let in; whether this wait may take time.
    void SetPreparation(std::function<void(bool)> prepare) { Prepare = std::move(prepare); }

    shell::Milliseconds GetMilliseconds() override;
    void WaitForEvents(std::optional<shell::Milliseconds> deadline) override;

  private:
    std::function<void(bool)> Prepare;
    QTimer Deadline; // ends a wait, and does nothing else
};

} // namespace tavo::qt
