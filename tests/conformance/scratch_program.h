// A program of nothing but parts: frame, view, page and a dialog with a control of every kind. It keeps every message.
#pragma once

#include "framework/dialog.h"
#include "framework/message_pump.h"
#include "framework/page.h"

#include <functional>
#include <vector>

namespace tavo::conformance {

// The controls of the dialog.
constexpr int kLabel = 1001;
constexpr int kEdit = 1002;
constexpr int kNumber = 1003;
constexpr int kFixedList = 1004;
constexpr int kEditableList = 1005;
constexpr int kDate = 1006;
constexpr int kTime = 1007;
constexpr int kCheck = 1008;
constexpr int kFirstOfOne = 1009;
constexpr int kSecondOfOne = 1010;
constexpr int kFirstOfTwo = 1011;
constexpr int kSecondOfTwo = 1012;
constexpr int kPush = 1013;
constexpr int kPicture = 1014;
constexpr int kScroll = 1015;
constexpr int kPaper = 1016;
constexpr int kHiddenEdit = 1017;

constexpr int kPictureOff = 263;
constexpr int kPictureOn = 272;

extern const DialogTemplate kPageForm;
extern const DialogTemplate kControlsForm;

// What came, in order, and what the test wants done about it.
struct MessageLog {
    std::vector<Message> All;
    std::function<void(const Message&)> Hook;

    void Take(const Message& message);
    int Count(MessageNumber number) const;
    int Count(MessageNumber number, int id, int code) const;
    // The codes of what a control told, in order.
    std::vector<int> CodesOf(int id) const;
};

class ScratchWindow : public CWindow {
  public:
    explicit ScratchWindow(CMessagePump& pump) : CWindow(pump) {}

    bool Make(const WindowDescription& description) { return Create(description); }

    MessageLog Log;

  protected:
    void HandleByDefault(const Message& message) override { Log.Take(message); }
};

class ScratchPage : public CPage {
  public:
    explicit ScratchPage(CMessagePump& pump) : CPage(pump, kPageForm) {}

    bool Make(WindowHandle view) { return CreatePage(view); }

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    using CFormWindow::AddControl;

    MessageLog Log;
    std::function<void(ISurface&)> Draw; // paints over the white
    int RepaintRequests = 0;

  protected:
    void RepaintAll() override { ++RepaintRequests; }

    void Paint() override;

    void HandleByDefault(const Message& message) override { Log.Take(message); }

  private:
    bool NotePaint(const Message& message);
};

class ScratchDialog : public CDialog {
  public:
    explicit ScratchDialog(CMessagePump& pump) : CDialog(pump, kControlsForm) {}

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    using CDialog::EndDialog;
    using CFormWindow::EnableItem;
    using CFormWindow::ItemText;
    using CFormWindow::SetItemText;
    using CFormWindow::ShowItem;

    MessageLog Log;
    std::function<void()> OnOpen;
    std::function<bool()> MayClose; // asked at Cancel; none: yes

  protected:
    void OnInitDialog() override;
    void OnCancel() override;

    void HandleByDefault(const Message& message) override;

  private:
    bool Note(const Message& message);
};

// A point of the screen on this control of the dialog, near its left edge.
Point PlaceOf(int control);

} // namespace tavo::conformance
