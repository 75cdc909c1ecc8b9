// The ink control ("InkX"), driven by its own numbered messages.
#pragma once

#include "platform/handles.h"
#include "platform/messages.h"
#include "platform/system_time.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

constexpr MessageNumber kInkCanPaste = WM_USER + 50;
constexpr MessageNumber kInkUndo = WM_USER + 234;
constexpr MessageNumber kInkRedo = WM_USER + 235;
constexpr MessageNumber kInkCanRedo = WM_USER + 246;
constexpr MessageNumber kInkGetView = WM_USER + 254;
constexpr MessageNumber kInkSetView = WM_USER + 284;
constexpr MessageNumber kInkSetPageStyle = WM_USER + 287;
constexpr MessageNumber kInkSetZoom = WM_USER + 290; // the second argument is the percentage
constexpr MessageNumber kInkGetPageStyle = WM_USER + 323;
constexpr MessageNumber kInkSetPenMode = WM_USER + 329;
constexpr MessageNumber kInkGetDataLength = WM_USER + 514;
constexpr MessageNumber kInkShowRecorderBar = WM_USER + 530;
constexpr MessageNumber EM_GETSEL = 0x00B0;
constexpr MessageNumber EM_SETSEL = 0x00B1;
constexpr MessageNumber EM_CANUNDO = 0x00C6;
constexpr MessageNumber EM_SETREADONLY = 0x00CF; // 1: ink can be selected and copied, and nothing can change it

constexpr int kInkStyleRuled = 2;
constexpr int kInkStyleGrid = 4;
constexpr int kInkStyleNone = 16;
constexpr int kInkStyleDotted = 32;
constexpr int kInkStyleYellow = 64;
constexpr int kInkPenDraws = 0;
constexpr int kInkPenSelects = 1;
constexpr int kInkViewTyping = 0;
constexpr int kInkViewWriting = 2;

// Ink of an editor that a crash closed before the person did.
struct RecoveredInk {
    std::u16string Name;
    SYSTEMTIME WrittenOn; // when it was begun
    std::vector<std::uint8_t> Data;
    std::vector<std::uint8_t> Home; // as SetHome or HoldInk was told; empty when nobody said
};

enum class RecoveredInkEnd {
    Kept,     // it has become a memo: it goes
    Declined, // it stays in the recovery folder, and is not found again
};

// The control itself is made with IControls as ControlKind::Ink.
class IInk {
  public:
    virtual ~IInk() = default;
    // Any message above, WM_CUT, WM_COPY, WM_PASTE or WM_CLEAR; gives the control's answer, 0 for unknown ones.
    virtual int SendMessageW(WindowHandle ink, MessageNumber number, int first, int second) = 0;
    virtual std::vector<std::uint8_t> GetData(WindowHandle ink) = 0; // WM_USER + 515; empty paper gives no bytes
    virtual bool SetData(WindowHandle ink, std::span<const std::uint8_t> data) = 0; // WM_USER + 516

    // What the control's ink belongs to, in the program's own bytes (at most 65,535): a crash leaves them with the ink.
    // Said before anything is drawn.
    virtual void SetHome(WindowHandle ink, std::span<const std::uint8_t> home) = 0;
    // Nobody could keep the control's ink: when the control goes, it is left as a crash would leave it.
    virtual void LeaveForRecovery(WindowHandle ink) = 0;
    // Ink that waits to be saved together with something else: kept as a crash would leave it, and left so at the
    // program's end, until EndRecovered. Gives its name; empty when it cannot be kept.
    virtual std::u16string HoldInk(std::span<const std::uint8_t> home, std::span<const std::uint8_t> data) = 0;

    // What crashes left, oldest first; none of it is open anywhere.
    virtual std::vector<RecoveredInk> FindRecovered() = 0;
    virtual void EndRecovered(std::u16string_view name, RecoveredInkEnd end) = 0;
};

} // namespace tavo
