// What the ink controls hold: the note's bytes and how the paper is shown.
#pragma once

#include "platform/ink.h"

#include <functional>
#include <map>

namespace tavo::qt {

struct InkState {
    std::vector<std::uint8_t> Data;
    int PageStyle = kInkStyleNone;
    int Zoom = 100;
    int PenMode = kInkPenSelects;
    int View = kInkViewTyping;
    bool RecorderBar = false;
};

class InkPapers final : public IInk {
  public:
    int SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) override;
    std::vector<std::uint8_t> GetData(WindowHandle ink) override;
    bool SetData(WindowHandle ink, std::span<const std::uint8_t> data) override;

    // A fresh paper's state for a control that was told nothing yet.
    InkState Find(WindowHandle ink) const;

    void Drop(WindowHandle ink) { Papers.erase(ink); }

    // Called with the control whose looks changed.
    void SetWatch(std::function<void(WindowHandle)> watch) { Watch = std::move(watch); }

  private:
    std::map<WindowHandle, InkState> Papers;
    std::function<void(WindowHandle)> Watch;
};

} // namespace tavo::qt
