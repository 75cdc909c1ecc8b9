// Shows cards as notifications of the desktop, or in a window of our own where no such service answers; rings.
#pragma once

#include "companion/child.h"
#include "companion/notifications.h"
#include "companion/own_window.h"
#include "host/files/device_files.h"
#include "host/files/device_root.h"
#include "host/posix/posix_disk.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tavo::companion {

class ReminderDesk final : public reminders::IDesk {
  public:
    struct Events {
        std::function<void(std::uint32_t card, reminders::Answer answer, int snooze)> Answered;
        std::function<void()> ServiceChanged; // cards are gone, or somebody else could show them
        std::function<void(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed)> Placed;
        // A card of our window stands on the desktop now.
        std::function<void(std::uint32_t card, const reminders::PlacedCard& placed)> Moved;
        std::function<std::int64_t()> NowWall;
    };

    ReminderDesk(const files::DeviceRoot& root, Events events);

    bool Holds(const std::string& service) override;
    reminders::Placement Show(const reminders::Card& card, std::uint32_t replaced) override;
    void TakeBack(std::uint32_t card) override;
    void Ring(const reminders::Card& card) override;
    void StopRinging() override;
    void OpenItem(std::int32_t item) override;

    Notifications& Bus() { return OwnBus; }

    OwnWindow& Window() { return OwnCards; }

    // For the loop: handles what has come and what did not come in time; when to do so at the latest.
    void Process();
    std::optional<Instant> Deadline() const;
    // After SIGCHLD.
    void ReapChildren();

  private:
    // A card that was to be shown, until it was answered where the desktop may still take it.
    struct Offer {
        CardText Text;
        std::uint32_t Replaced = 0;
        std::uint32_t WindowCard = 0; // where our own window has it
        bool IsSettled = false;       // only a late answer of the desktop may still come
    };

    void TakeBusReply(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed);
    void TakeWindowReply(std::uint32_t question, const std::optional<reminders::PlacedCard>& placed);
    void TakeAnswer(std::uint32_t card, reminders::Answer answer, int snooze, const std::string& token);
    std::vector<std::string> FindSounds(const reminders::Card& card);

    std::string RunFolder;
    posix::PosixDisk Disk;
    files::DeviceFiles Files;
    Events Told;
    Notifications OwnBus;
    OwnWindow OwnCards;
    Child Ringer;
    std::uint32_t LastQuestion = 0;
    std::map<std::uint32_t, Offer> Offers; // by question
    std::string Token;                     // of the answer that is being taken
};

} // namespace tavo::companion
