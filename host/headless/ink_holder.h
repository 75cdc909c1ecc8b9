// The ink control without ink: it holds bytes and keeps what it was told.
#pragma once

#include "platform/ink.h"

#include <map>

namespace tavo::headless {

struct InkCall {
    WindowHandle Ink = WindowHandle::None;
    MessageNumber Number = WM_NULL;
    int First = 0;
    int Second = 0;
    friend bool operator==(const InkCall&, const InkCall&) = default;
};

class InkHolder : public IInk {
  public:
    int SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) override;
    std::vector<std::uint8_t> GetData(WindowHandle ink) override;
    bool SetData(WindowHandle ink, std::span<const std::uint8_t> data) override;

    // Someone writes: the paper holds this now.
    void Write(WindowHandle ink, std::vector<std::uint8_t> data) { Papers[ink].Data = std::move(data); }

    // What the control answers from now on to a question about editing (EM_CANUNDO, EM_GETSEL, kInkCanPaste...).
    void SetAnswer(MessageNumber number, int answer) { Answers[number] = answer; }

    int Zoom(WindowHandle ink) { return Papers[ink].Zoom; }

    int PenMode(WindowHandle ink) { return Papers[ink].PenMode; }

    std::vector<InkCall> Calls; // all but those that only ask

  private:
    struct Paper {
        std::vector<std::uint8_t> Data;
        int PageStyle = kInkStyleNone;
        int Zoom = 100;
        int PenMode = kInkPenSelects;
        int View = kInkViewTyping;
    };

    std::map<WindowHandle, Paper> Papers;
    std::map<MessageNumber, int> Answers;
};

} // namespace tavo::headless
