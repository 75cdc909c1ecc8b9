// Asks for the name of one memo file.
#pragma once

#include "framework/dialog.h"

#include <cstdint>
#include <string>

namespace tavo {

constexpr std::int32_t kPurposeSave = 0; // and any other value
constexpr std::int32_t kPurposeCopy = 1;
constexpr std::int32_t kPurposeRename = 2;

// The name is taken as it was typed, whatever it is.
class CCopyMemoDlg : public CDialog {
  public:
    explicit CCopyMemoDlg(CMessagePump& pump);

    std::u16string Name; // the one proposed; after IDOK the one typed
    std::int32_t Purpose = kPurposeSave;

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
};

} // namespace tavo
