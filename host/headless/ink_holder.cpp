// Answering the ink control's messages.
#include "host/headless/ink_holder.h"

namespace tavo::headless {

int InkHolder::SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) {
    Paper& paper = Papers[ink];
    switch (number) {
    case kInkGetDataLength:
        return static_cast<int>(paper.Data.size());
    case kInkGetPageStyle:
        return paper.PageStyle;
    case kInkGetView:
        return paper.View;
    case EM_GETSEL:
    case EM_CANUNDO:
    case kInkCanRedo:
    case kInkCanPaste: {
        const auto answer = Answers.find(number);
        return answer == Answers.end() ? 0 : answer->second;
    }
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
    default:
        break;
    }
    Calls.push_back({ink, number, first, second});
    return 0;
}

std::vector<std::uint8_t> InkHolder::GetData(WindowHandle ink) {
    return Papers[ink].Data;
}

bool InkHolder::SetData(WindowHandle ink, std::span<const std::uint8_t> data) {
    Papers[ink].Data.assign(data.begin(), data.end());
    return true;
}

} // namespace tavo::headless
