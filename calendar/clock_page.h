// The clock page: today's date and the time, on a dial or in digits.
#pragma once

#include "page/main_page.h"

#include <string>

namespace tavo {

class IRegistry;
struct HandPoints;

// Which face the profile says: the dial, unless it says digits.
bool ReadIsAnalog(IRegistry& registry);

class CClockPage : public CMainPage {
  public:
    CClockPage(CMessagePump& pump, CProgramState& state, IMainView& view);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void Paint() override;

  private:
    void PaintHeader(const std::u16string& date);
    void PaintDigital(const SYSTEMTIME& now);
    void PaintAnalog(const SYSTEMTIME& now);
    void PaintHourOrMinuteHand(const HandPoints& hand);
    void DeclareFace(const SYSTEMTIME& now);

    void UpdatePromptly();
    void UpdateRegularly();
    void TakeStylusDown(Point point);
    void TakeKeyUp(int key);
    void ToggleFace();

    bool IsAnalog = true;
};

} // namespace tavo
