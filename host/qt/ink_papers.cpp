// Answering the ink control's messages.
#include "host/qt/ink_papers.h"

namespace tavo::qt {

int InkPapers::SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) {
    InkState& paper = Papers[ink];
    switch (number) {
    case kInkGetDataLength:
        return static_cast<int>(paper.Data.size());
    case kInkGetPageStyle:
        return paper.PageStyle;
    case kInkGetView:
        return paper.View;
    case kInkSetPageStyle:
        paper.PageStyle = first;
        break;
    case kInkSetView:
        paper.View = first;
        break;
    case kInkSetPenMode:
        paper.PenMode = first;
        break;
    case kInkSetZoom:
        paper.Zoom = second;
        break;
    case kInkShowRecorderBar:
        paper.RecorderBar = first != 0;
        break;
    default: // without strokes there is nothing to undo, select or paste
        return 0;
    }
    if (Watch) {
        Watch(ink);
    }
    return 0;
}

std::vector<std::uint8_t> InkPapers::GetData(WindowHandle ink) {
    return Find(ink).Data;
}

bool InkPapers::SetData(WindowHandle ink, std::span<const std::uint8_t> data) {
    Papers[ink].Data.assign(data.begin(), data.end());
    if (Watch) {
        Watch(ink);
    }
    return true;
}

InkState InkPapers::Find(WindowHandle ink) const {
    const auto found = Papers.find(ink);
    return found == Papers.end() ? InkState() : found->second;
}

} // namespace tavo::qt
