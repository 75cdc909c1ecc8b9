// A scripted device with a store, and the words in which tests say what is on it.
#pragma once

#include "framework/message_pump.h"
#include "host/headless/device.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::test {

// A moment of the device's time. The weekday is left open: nothing that takes a moment reads it.
SYSTEMTIME At(int year, int month, int day, int hour = 0, int minute = 0);

// Options whose store is the real one, in the device's own folder.
headless::DeviceOptions WithStore(headless::DeviceOptions options = {});

// Says what is in a store, through a connection of its own, as another program would.
class StoreWords {
  public:
    explicit StoreWords(IHost& host) : Host(host) {}

    // Changes the item before it is saved.
    using ArrangeItem = std::function<void(IAppointment&)>;
    using ArrangePattern = std::function<void(IRecurrencePattern&)>;

    Oid GivenAppointment(std::u16string_view subject, const SYSTEMTIME& start, const SYSTEMTIME& end,
                         const ArrangeItem& arrange = {});
    // From midnight of the first day to the midnight after the last; of one day, start and end are its midnight.
    Oid GivenAllDay(std::u16string_view subject, const SYSTEMTIME& first, int days = 1);
    // Endless, with interval 1 and the day, week, weekday and month of its start, unless arranged otherwise.
    Oid GivenSeries(std::u16string_view subject, const SYSTEMTIME& start, const SYSTEMTIME& end, std::int32_t type,
                    const ArrangePattern& arrange = {});
    void Delete(Oid oid);

    // A connection to the store that nobody has used yet, and one that is logged on.
    ComPtr<IPOutlookApp> NewConnection();
    ComPtr<IPOutlookApp> Connect();

  private:
    IPOutlookApp& Outlook();
    DATE ToDate(const SYSTEMTIME& moment);

    IHost& Host;
    ComPtr<IPOutlookApp> Own;
};

// Inherited first, it is there before what is made with it.
struct OwnDevice {
    explicit OwnDevice(const headless::DeviceOptions& options) : Device(options) {}

    headless::Device Device;
};

class TestDevice : public StoreWords {
  public:
    explicit TestDevice(const headless::DeviceOptions& options = WithStore())
        : StoreWords(Host), Host(options), Pump(Host) {}

    void GivenFile(std::u16string_view path, const std::vector<std::uint8_t>& bytes);
    // Nothing when there is no such file.
    std::optional<std::vector<std::uint8_t>> FileBytes(std::u16string_view path);

    // The next message box gets this answer as soon as the program waits for it.
    void WillAnswer(int answer);
    // All message boxes so far, each as "caption|text|OK" or "caption|text|Yes No".
    std::vector<std::u16string> MessagesShown() const;

    headless::HeadlessHost Host;
    CMessagePump Pump;
};

} // namespace tavo::test
