// Which handler of which class takes a message, and with what arguments.
#include "framework/message_map.h"

#include "framework/window.h"
#include "host/headless/device.h"
#include "tests/framework/plain_window.h"

#include <gtest/gtest.h>

#include <string>

namespace tavo {

namespace {

constexpr int kCommand = 32800;
constexpr int kFirst = 33001;
constexpr int kLast = 33200;
constexpr int kList = 1020;

class BaseWindow : public CWindow {
  public:
    explicit BaseWindow(CMessagePump& pump) : CWindow(pump) {}

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    std::vector<std::string> Calls;
    bool Refuses = true;

  protected:
    void HandleByDefault(const Message&) override { Calls.emplace_back("default"); }

  private:
    void TakeUser() { Calls.emplace_back("base"); }

    void TakeStylus(Point at) { Calls.push_back("base stylus " + std::to_string(at.X) + ',' + std::to_string(at.Y)); }

    void TakeKey(int key) { Calls.push_back("base key " + std::to_string(key)); }
};

const MessageMap& BaseWindow::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&BaseWindow::TakeUser>(WM_USER),
        On<&BaseWindow::TakeStylus>(WM_LBUTTONDOWN),
        On<&BaseWindow::TakeKey>(WM_KEYDOWN),
    };
    static const MessageMap map{entries, &CWindow::Messages()};
    return map;
}

class DerivedWindow : public BaseWindow {
  public:
    using BaseWindow::BaseWindow;

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  private:
    bool MayTakeUser() {
        Calls.emplace_back("derived");
        return !Refuses;
    }

    void TakeFirst() { Calls.emplace_back("first entry"); }

    void TakeSecond() { Calls.emplace_back("second entry"); }

    void TakeCommand() { Calls.emplace_back("command"); }

    void TakeRange(int id) { Calls.push_back("range " + std::to_string(id)); }

    void TakeDropDown(const Message& message) { Calls.push_back("list " + std::to_string(message.Code)); }

    void TakeTimer(int id) { Calls.push_back("timer " + std::to_string(id)); }

    void TakeDate() { Calls.emplace_back("date"); }

    void TakeScroll(const Message& message) { Calls.push_back("scroll " + std::to_string(message.Value)); }
};

const MessageMap& DerivedWindow::Messages() {
    static constexpr MessageEntry entries[] = {
        On<&DerivedWindow::MayTakeUser>(WM_USER),
        OnCommand<&DerivedWindow::TakeCommand>(kCommand),
        OnCommandRange<&DerivedWindow::TakeRange>(kFirst, kLast),
        OnControl<&DerivedWindow::TakeDropDown>(kList, CBN_DROPDOWN),
        OnTimer<&DerivedWindow::TakeTimer>(1002),
        OnNotify<&DerivedWindow::TakeDate>(1026, DTN_DATETIMECHANGE),
        OnScroll<&DerivedWindow::TakeScroll>(1021),
        On<&DerivedWindow::TakeFirst>(WM_USER + 1),
        On<&DerivedWindow::TakeSecond>(WM_USER + 1),
    };
    static const MessageMap map{entries, &BaseWindow::Messages()};
    return map;
}

class MessageMapTest : public ::testing::Test {
  protected:
    std::vector<std::string> CallsOf(const Message& message) {
        Window.Calls.clear();
        Window.HandleMessage(message);
        return Window.Calls;
    }

    using Words = std::vector<std::string>;
    headless::Device Device;
    CMessagePump Pump{Device.Host()};
    DerivedWindow Window{Pump};
};

TEST_F(MessageMapTest, OwnTableComesBeforeTheBaseClass) {
    Window.Refuses = false;
    EXPECT_EQ(CallsOf({{}, WM_USER, 0, 0, 0, {}}), Words{"derived"});
}

TEST_F(MessageMapTest, HandlerThatGivesFalsePassesTheMessageToTheBaseClass) {
    EXPECT_EQ(CallsOf({{}, WM_USER, 0, 0, 0, {}}), (Words{"derived", "base"}));
}

TEST_F(MessageMapTest, FirstMatchingEntryTakesTheMessageAlone) {
    EXPECT_EQ(CallsOf({{}, WM_USER + 1, 0, 0, 0, {}}), Words{"first entry"});
}

TEST_F(MessageMapTest, WhatNoTableTakesIsHandledByDefault) {
    EXPECT_EQ(CallsOf({{}, WM_USER + 2, 0, 0, 0, {}}), Words{"default"});
}

TEST_F(MessageMapTest, PointsAndIdsAreDecoded) {
    EXPECT_EQ(CallsOf({{}, WM_LBUTTONDOWN, 0, 0, 0, {7, 9}}), Words{"base stylus 7,9"});
    EXPECT_EQ(CallsOf({{}, WM_KEYDOWN, VK_LEFT, 0, 0, {}}), Words{"base key 37"});
}

TEST_F(MessageMapTest, CommandsMatchTheirIdAndClicksOnly) {
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kCommand, BN_CLICKED, 1, {}}), Words{"command"});
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kCommand, EN_CHANGE, 0, {}}), Words{"default"});
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kCommand + 1, BN_CLICKED, 1, {}}), Words{"default"});
}

TEST_F(MessageMapTest, RangeIncludesBothEnds) {
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kFirst - 1, 0, 0, {}}), Words{"default"});
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kFirst, 0, 0, {}}), Words{"range 33001"});
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kLast, 0, 0, {}}), Words{"range 33200"});
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kLast + 1, 0, 0, {}}), Words{"default"});
}

TEST_F(MessageMapTest, ControlsMatchTheirNotification) {
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kList, CBN_DROPDOWN, 0, {}}), Words{"list 7"});
    EXPECT_EQ(CallsOf({{}, WM_COMMAND, kList, CBN_CLOSEUP, 0, {}}), Words{"default"});
    EXPECT_EQ(CallsOf({{}, WM_NOTIFY, 1026, DTN_DATETIMECHANGE, 0, {}}), Words{"date"});
    EXPECT_EQ(CallsOf({{}, WM_NOTIFY, 1026, DTN_CLOSEUP, 0, {}}), Words{"default"});
    EXPECT_EQ(CallsOf({{}, WM_NOTIFY, 1027, DTN_DATETIMECHANGE, 0, {}}), Words{"default"});
}

TEST_F(MessageMapTest, TimersMatchTheirIdAndScrollBarsAnyRequest) {
    EXPECT_EQ(CallsOf({{}, WM_TIMER, 1002, 0, 0, {}}), Words{"timer 1002"});
    EXPECT_EQ(CallsOf({{}, WM_TIMER, 1003, 0, 0, {}}), Words{"default"});
    EXPECT_EQ(CallsOf({{}, WM_VSCROLL, 1021, SB_THUMBTRACK, 12, {}}), Words{"scroll 12"});
    EXPECT_EQ(CallsOf({{}, WM_VSCROLL, 1021, SB_LINEUP, 0, {}}), Words{"scroll 0"});
}

} // namespace

} // namespace tavo
