// Windows made from a dialog template.
#include "framework/form_window.h"

#include "framework/message_pump.h"
#include "framework/page.h"
#include "host/headless/device.h"

#include <gtest/gtest.h>

#include <iterator>

namespace tavo {

namespace {

constexpr std::u16string_view kUnits[] = {u"Minute(s)", u"Hour(s)"};
constexpr DialogItem kItems[] = {
    {ControlKind::Label, 1029, u"Subject :", {3, 2, 40, 14}},
    {ControlKind::Edit, 1028, u"text", {44, 2, 150, 14}},
    {ControlKind::FixedList, 1037, u"", {44, 20, 100, 32}, false, false, 0, 0, kUnits},
    {ControlKind::Label, 0, u"never spoken of again", {3, 60, 40, 14}},
    {ControlKind::PictureButton, 1021, u"", {10, 40, 20, 56}, true, false, 236, 270},
};
const DialogTemplate kForm{144, u"Tavo Calendar", {139, 148}, 8, kItems};

class Form : public CPage {
  public:
    explicit Form(CMessagePump& pump) : CPage(pump, kForm) {}

    using CFormWindow::AddControl;
    using CFormWindow::CreateForm;
    using CFormWindow::EnableItem;
    using CFormWindow::ItemText;
    using CFormWindow::MoveItem;
    using CFormWindow::SetItemText;
    using CFormWindow::ShowItem;
    using CPage::CreatePage;
};

class FormWindowTest : public ::testing::Test {
  protected:
    FormWindowTest() {
        WindowDescription frame;
        frame.Kind = WindowKind::Frame;
        frame.Visible = true;
        const WindowHandle frameHandle = Device.Host().Windows().CreateWindowExW(frame);
        WindowDescription view;
        view.Kind = WindowKind::View;
        view.Parent = frameHandle;
        view.Visible = true;
        Made = Page.CreatePage(Device.Host().Windows().CreateWindowExW(view));
        Page.Show(ShowCommand::Maximize);
    }

    const shell::WindowRecord& Record(int id) { return *Device.Host().State.Tree.Find(Page.Item(id)); }

    headless::Device Device;
    CMessagePump Pump{Device.Host()};
    Form Page{Pump};
    bool Made = false;
};

TEST_F(FormWindowTest, MakesEveryItemOfTheTemplate) {
    ASSERT_TRUE(Made);
    EXPECT_EQ(Record(1029).Text, u"Subject :");
    EXPECT_EQ(Record(1028).Control->Kind, ControlKind::Edit);
    EXPECT_EQ(Record(1028).Control->FontPoints, 8);
    EXPECT_EQ(Record(1037).Control->Items, (std::vector<std::u16string>{u"Minute(s)", u"Hour(s)"}));
    EXPECT_FALSE(Record(1037).Visible);
    EXPECT_EQ(Record(1021).Control->PictureOff, 236);
    EXPECT_EQ(Record(1021).Control->PictureOn, 270);
    EXPECT_EQ(Page.Item(9999), WindowHandle::None);
}

TEST_F(FormWindowTest, DialogUnitsBecomePixels) {
    EXPECT_EQ(Record(1028).Bounds, (Rect{66, 3, 225, 22}));
    EXPECT_EQ(PixelsAcross(159), 238);
    EXPECT_EQ(PixelsDown(148), 240);
}

TEST_F(FormWindowTest, ItemsAreReachedByTheirIds) {
    Page.SetItemText(1028, u"Lunch");
    EXPECT_EQ(Page.ItemText(1028), u"Lunch");
    Page.ShowItem(1037, true);
    EXPECT_TRUE(Device.See.IsShown(1037));
    Page.EnableItem(1037, false);
    EXPECT_FALSE(Device.See.IsEnabled(1037));
    Page.MoveItem(1037, Rect::FromSize(65, 93, 50, 20));
    EXPECT_EQ(Record(1037).Bounds, Rect::FromSize(65, 93, 50, 20));
}

TEST_F(FormWindowTest, ControlsCanBeAdded) {
    ControlDescription bar;
    bar.Kind = ControlKind::ScrollBar;
    bar.Id = 1021 + 1;
    bar.Bounds = Rect::FromSize(222, 31, 15, 207);
    const WindowHandle handle = Page.AddControl(bar);
    EXPECT_NE(handle, WindowHandle::None);
    EXPECT_EQ(Page.Item(1022), handle);
}

TEST_F(FormWindowTest, WhatHasNoIdIsMadeAndNotFound) {
    EXPECT_EQ(Page.Item(0), WindowHandle::None);
    EXPECT_EQ(Device.Host().State.Tree.ChildrenOf(Page.Handle()).size(), std::size(kItems));
}

TEST_F(FormWindowTest, WithoutItsWindowItMakesNoControls) {
    Form other(Pump);
    WindowDescription child;
    child.Kind = WindowKind::Child;
    child.Parent = WindowHandle{99}; // there is none
    EXPECT_FALSE(other.CreateForm(child));
    EXPECT_EQ(other.Item(1028), WindowHandle::None);
}

TEST_F(FormWindowTest, PagesHaveACaptionAndOneButtonAndPaintWhite) {
    ASSERT_TRUE(Device.Finish(Pump));
    EXPECT_EQ(Device.See.Caption(), u"Tavo Calendar");
    EXPECT_EQ(Device.Host().State.Tree.Find(Page.Handle())->Buttons, NavigationButtons::Close);
    ASSERT_NE(Device.See.LastFrame(), nullptr);
    EXPECT_EQ(Device.See.LastFrame()->Picture.GetSize(), (Size{240, 267}));
    EXPECT_EQ(ToText(Device.See.LastFrame()->Calls), "fill 0,0,240,267 #FFFFFF\n");
}

} // namespace

} // namespace tavo
