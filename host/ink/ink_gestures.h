// What a pen may do between touching the paper and leaving it, a class for each.
#pragma once

#include "host/ink/ink_control.h"

namespace tavo::ink {

// `on` is the control that has the gesture, places are ticks of its paper.
class InkControl::Gesture {
  public:
    explicit Gesture(ViewPoint anchor) : Anchor(anchor), Last(anchor) {}

    virtual ~Gesture() = default;

    Gesture(const Gesture&) = delete;
    Gesture& operator=(const Gesture&) = delete;

    void MoveTo(InkControl& on, const PenSample& sample, ViewPoint place);
    // The pen left the paper where it was last.
    virtual void Finish(InkControl& on) = 0;

    // Taken back.
    virtual void Cancel(InkControl&) {}

    // What shows of it meanwhile.
    virtual const Stroke* LiveStroke() const { return nullptr; }

    virtual Box Lasso() const { return {}; }

    // Where the selection would go, which has this frame now.
    virtual Box MovedFrame(const Box& frame) const { return frame; }

  protected:
    // The pen goes on from Last to this place.
    virtual void Follow(InkControl& on, const PenSample& sample, ViewPoint place) = 0;

    ViewPoint Anchor; // where it began, and where it is
    ViewPoint Last;
};

class InkControl::Drawing final : public Gesture {
  public:
    Drawing(InkControl& on, const PenSample& sample, ViewPoint anchor);

    void Finish(InkControl& on) override;
    void Cancel(InkControl& on) override;

    const Stroke* LiveStroke() const override { return &Live; }

  protected:
    void Follow(InkControl& on, const PenSample& sample, ViewPoint place) override;

  private:
    Stroke Live;
    std::uint32_t LiveBegan;
};

class InkControl::Erasing final : public Gesture {
  public:
    Erasing(InkControl& on, ViewPoint anchor);

    void Finish(InkControl&) override {} // it is done as it goes

  protected:
    void Follow(InkControl& on, const PenSample& sample, ViewPoint place) override;

  private:
    void EraseTo(InkControl& on, ViewPoint place);

    bool ErasedAny = false;
};

class InkControl::Selecting final : public Gesture {
  public:
    using Gesture::Gesture;

    void Finish(InkControl& on) override;

    Box Lasso() const override { return Span; }

  protected:
    void Follow(InkControl& on, const PenSample& sample, ViewPoint place) override;

  private:
    Box Span;
};

class InkControl::Moving final : public Gesture {
  public:
    using Gesture::Gesture;

    void Finish(InkControl& on) override;
    Box MovedFrame(const Box& frame) const override;

  protected:
    void Follow(InkControl& on, const PenSample& sample, ViewPoint place) override;
};

} // namespace tavo::ink
