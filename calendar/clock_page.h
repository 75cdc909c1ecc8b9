// The clock page: today's date and the time, on a dial or in digits.
#pragma once

#include "schedule/main_page.h"

namespace tavo {

struct HandPoints;

class CClockPage : public CMainPage {
  public:
    CClockPage(CMessagePump& pump, CProgramState& state, IMainView& view);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void Paint() override;

  private:
    void PaintHeader(const SYSTEMTIME& now);
    void PaintDigital(const SYSTEMTIME& now);
    void PaintAnalog(const SYSTEMTIME& now);
    void PaintHourOrMinuteHand(const HandPoints& hand);
    void DeclareContents(const SYSTEMTIME& now);

    void UpdatePromptly();
    void UpdateRegularly();
    bool TakeStylusDown(Point point);
    bool TakeKeyUp(int key);
    void ToggleFace();

    bool IsAnalog = true;
};

} // namespace tavo
