// A page and its frame on a scripted device, for the device's own tests.
#pragma once

#include "framework/message_pump.h"
#include "framework/page.h"
#include "host/headless/device.h"

#include <gtest/gtest.h>

namespace tavo::headless {

class NotingPage : public CPage {
  public:
    NotingPage(CMessagePump& pump, const DialogTemplate& form) : CPage(pump, form) {}

    using CFormWindow::AddControl;
    using CPage::CreatePage;

    std::vector<Message> Taken;
    std::function<void(const Message&)> Hook;
    std::vector<PaintedItem> Declared;

    int Count(MessageNumber number) const {
        int count = 0;
        for (const Message& message : Taken) {
            count += message.Number == number ? 1 : 0;
        }
        return count;
    }

  protected:
    void HandleByDefault(const Message& message) override {
        Taken.push_back(message);
        if (Hook) {
            Hook(message);
        }
    }

    void Paint() override {
        DropPainted();
        for (const PaintedItem& item : Declared) {
            Surface().FillRect(item.Bounds, Color{});
            Surface().DrawTextW(item.Name, item.Bounds, {});
            Declare(item);
        }
        PresentSurface();
    }
};

class DevicePageTest : public ::testing::Test {
  protected:
    DevicePageTest() {
        IWindows& windows = Own.Host().Windows();
        WindowDescription frame;
        frame.Kind = WindowKind::Frame;
        frame.Visible = true;
        WindowDescription view;
        view.Kind = WindowKind::View;
        view.Parent = windows.CreateWindowExW(frame);
        view.Visible = true;
        ViewHandle = windows.CreateWindowExW(view);
        Page.CreatePage(ViewHandle);
        Page.Show(ShowCommand::Maximize);
    }

    WindowHandle Add(ControlKind kind, int id, const Rect& bounds) {
        ControlDescription description;
        description.Kind = kind;
        description.Id = id;
        description.Bounds = bounds;
        return Page.AddControl(description);
    }

    const DialogTemplate Form{140, u"Schedule", {159, 110}, 10, {}};
    Device Own;
    CMessagePump Pump{Own.Host()};
    NotingPage Page{Pump, Form};
    WindowHandle ViewHandle = WindowHandle::None;
};

} // namespace tavo::headless
