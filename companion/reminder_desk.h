// Shows cards as notifications of the desktop, or in a window of our own where no such service answers; rings.
#pragma once

#include "companion/child.h"
#include "companion/notifications.h"
#include "host/files/device_files.h"
#include "host/files/device_root.h"

#include <functional>
#include <string>
#include <vector>

namespace tavo::companion {

class ReminderDesk final : public reminders::IDesk {
  public:
    struct Events {
        std::function<void(std::uint32_t card, reminders::Answer answer, int snooze)> Answered;
        std::function<void()> ServiceChanged;
        std::function<std::int64_t()> NowWall;
    };

    ReminderDesk(const files::DeviceRoot& root, Events events);

    std::string Service() override;
    std::optional<std::uint32_t> Show(const reminders::Card& card, std::uint32_t replaced) override;
    void TakeBack(std::uint32_t card) override;
    void Ring(const reminders::Card& card) override;
    void StopRinging() override;
    void OpenItem(std::int32_t item) override;

    Notifications& Bus() { return OwnBus; }

    // The window's answers; -1 while it is not open.
    int WindowDescriptor() const { return Window.Output(); }

    void ReadWindow();
    // After SIGCHLD.
    void ReapChildren();
    // The service of notifications came or went.
    void TakeServiceChange();

  private:
    std::optional<std::uint32_t> ShowInWindow(const CardText& text, std::uint32_t replaced);
    std::vector<std::string> FindSounds(const reminders::Card& card);

    std::string RunFolder;
    files::DeviceFiles Files;
    Events Told;
    Notifications OwnBus;
    bool UsesWindow = false;
    Child Window;
    Child Ringer;
    std::uint32_t LastWindowCard = 0;
    std::vector<std::string> Postponed; // lines of the window that came while a card was being shown
};

} // namespace tavo::companion
