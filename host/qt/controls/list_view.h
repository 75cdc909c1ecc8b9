// Drop-down lists, with and without free text.
#pragma once

#include "host/qt/controls/text_view.h"

#include <QComboBox>

namespace tavo::qt {

// Asks the shell before its list opens, because the program may want to fill it first.
class ListBox final : public QComboBox {
  public:
    ListBox(Device& device, WindowHandle control, QWidget* parent)
        : QComboBox(parent), Shared(device), Control(control) {}

    void showPopup() override { Shared.Controls.OpenList(Control); }

    void hidePopup() override;
    // What the shell says when the time has come.
    void OpenNow();

    void CloseNow() { QComboBox::hidePopup(); }

  private:
    Device& Shared;
    WindowHandle Control;
};

class ListView final : public ControlView {
  public:
    ListView(Device& device, const shell::WindowRecord& record, QWidget* parent);

    QWidget& Widget() override { return *Box; }

    void ShowState(const shell::WindowRecord& record) override;

    void OpenList() override { Box->OpenNow(); }

    void CloseList() override { Box->CloseNow(); }

  private:
    TextView Text;
    std::unique_ptr<ListBox> Box;
};

} // namespace tavo::qt
