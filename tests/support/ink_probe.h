// An ink control's device that writes down what it is told, and passes it on.
#pragma once

#include "platform/ink.h"

#include <ostream>
#include <string>
#include <vector>

namespace tavo::test {

struct InkMessage {
    MessageNumber Number = 0;
    int First = 0;
    int Second = 0;
    friend bool operator==(const InkMessage&, const InkMessage&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const InkMessage& message) {
    return out << "WM_USER + " << message.Number - WM_USER << " (" << message.First << ", " << message.Second << ")";
}

class InkProbe final : public IInk {
  public:
    explicit InkProbe(IInk& ink) : Real(ink) {}

    int SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) override {
        Sent.push_back({number, first, second});
        return Real.SendMessageW(ink, number, first, second);
    }

    std::vector<std::uint8_t> GetData(WindowHandle ink) override { return Real.GetData(ink); }

    bool SetData(WindowHandle ink, std::span<const std::uint8_t> data) override {
        SentBeforeData = Sent.size();
        return Real.SetData(ink, data);
    }

    void SetHome(WindowHandle ink, std::span<const std::uint8_t> home) override { Real.SetHome(ink, home); }

    void LeaveForRecovery(WindowHandle ink) override { Real.LeaveForRecovery(ink); }

    std::u16string HoldInk(std::span<const std::uint8_t> home, std::span<const std::uint8_t> data) override {
        return Real.HoldInk(home, data);
    }

    std::vector<RecoveredInk> FindRecovered() override { return Real.FindRecovered(); }

    void EndRecovered(std::u16string_view name, RecoveredInkEnd end) override { Real.EndRecovered(name, end); }

    std::vector<InkMessage> Sent;   // in order
    std::size_t SentBeforeData = 0; // how many were sent when the last ink was loaded

  private:
    IInk& Real;
};

} // namespace tavo::test
