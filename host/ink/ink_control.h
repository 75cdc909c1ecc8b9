// The ink control without a screen: paper, pen, selection, and the answers to the control's messages.
#pragma once

#include "host/ink/codec.h"
#include "host/ink/edit_history.h"
#include "host/ink/ink_shared.h"
#include "host/ink/paper_view.h"
#include "platform/ink.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace tavo::ink {

enum class PenEnd { Tip, Eraser };

constexpr int kNoPressure = -1; // of a device that does not tell

struct PenSample {
    ViewPoint Place; // in the control's pixels
    int Pressure = kNoPressure;
    std::uint32_t Time = 0; // milliseconds since some moment
};

// What must be shown anew since the last time somebody asked.
struct Damage {
    bool All = false;          // the paper is seen otherwise
    bool Scrolled = false;     // another part of it
    bool Overlay = false;      // frames, notice, bars
    bool LiveChanged = false;  // the stroke being drawn got longer
    bool LiveFinished = false; // it is the page's last stroke now
    Box Ink;                   // of the paper
};

class InkControl {
  public:
    explicit InkControl(InkShared& shared);
    ~InkControl();

    InkControl(const InkControl&) = delete;
    InkControl& operator=(const InkControl&) = delete;

    // The control's answer, 0 for unknown messages.
    int SendMessageW(MessageNumber number, int first, int second);
    // While nothing was drawn over bytes that are not ink of ours, these are they, unchanged.
    std::vector<std::uint8_t> GetData() const;
    bool SetData(std::span<const std::uint8_t> data);

    void Resize(Size size);

    // A person has seen the paper: from now on a zoom keeps the middle of what they see, not the paper's corner.
    void NoteShown() { WasSeen = true; }

    void PenDown(PenEnd end, const PenSample& sample);
    void PenMove(const PenSample& sample);
    void PenUp(const PenSample& sample);
    // The gesture is taken back.
    void PenCancel();

    bool IsPenDown() const { return Doing != nullptr; }

    // Only looked at: pen and keys select and copy.
    bool IsReadOnly() const { return ReadOnly; }

    void Wheel(int steps); // up is positive
    void WheelSideways(int steps);
    void ScrollTo(Point offset);      // ticks
    bool Key(int key, int modifiers); // false when it means nothing here

    const Page& Ink() const { return Paper; }

    const PaperView& View() const { return Shown; }

    int PageStyle() const { return Style; }

    const Stroke* LiveStroke() const; // null while none is being drawn

    // The frame around the selection, where it would go if the pen left now; empty without one.
    Box SelectionFrame() const;

    // The area that the pen is spanning; empty when it is not.
    Box Lasso() const;

    // What stands on the paper because its bytes could not be read; empty otherwise.
    std::u16string_view Notice() const;

    std::optional<Rect> RecorderBar() const; // its place in the control

    const Pen& ChosenPen() const { return Shared.Tool; }

    // Counts what a person did to the ink, the stroke being drawn included.
    std::uint64_t Revision() const { return Changes; }

    // Counts what was done to strokes that were already there: those after it cannot be told by what is new alone.
    std::uint64_t Reshapes() const { return Reshaped; }

    Damage TakeDamage() { return std::exchange(Damaged, {}); }

    // Called after anything changed that is seen.
    void SetWatch(std::function<void()> watch) { Watch = std::move(watch); }

  private:
    // host/ink/ink_gestures.h
    class Gesture;
    class Drawing;
    class Erasing;
    class Selecting;
    class Moving;

    int Set(MessageNumber number, int first, int second);
    int EditBy(MessageNumber number, int first, int second);
    bool ForbidsEdit(MessageNumber number) const;
    int Ask(MessageNumber number) const;
    void SetZoom(int percent);
    void Undo();
    void Redo();
    void Copy();
    void Clear();
    void Paste();
    void SelectAll(bool selected);
    void Do(Edit edit, bool isPartOfLast = false);
    void NoteInk(const Box& changed);
    void RefreshPaper();
    void Tell();

    bool PressBars(ViewPoint place);
    // Nothing where the paper is full.
    void BeginStroke(const PenSample& sample, ViewPoint place);
    void FinishGesture();
    ViewPoint Clamped(ViewPoint place) const;

    InkShared& Shared;
    Page Paper;
    EditHistory History;
    PaperView Shown;
    Size Control;
    std::vector<std::uint8_t> Unread; // bytes that are not ink of ours
    Reading UnreadKind = Reading::Whole;
    int Style = kInkStyleNone;
    int PenMode = kInkPenSelects;
    int ViewKind = kInkViewTyping;
    bool ReadOnly = false;
    bool RecorderShown = false;
    bool WasSeen = false;

    std::unique_ptr<Gesture> Doing; // null while the pen is away

    std::uint64_t Changes = 0;
    std::uint64_t Reshaped = 0;
    Damage Damaged;
    std::function<void()> Watch;
};

} // namespace tavo::ink
