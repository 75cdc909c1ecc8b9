// The message of what could not be done.
#include "store/refusal.h"

#include "tests/support/test_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavo {

namespace {

using testing::ElementsAre;

TEST(Refusal, IsSaidUnderTheProgramsNameOverItsOwner) {
    test::TestDevice device;
    WindowDescription frame;
    frame.Kind = WindowKind::Frame;
    frame.Visible = true;
    const WindowHandle owner = device.Host.Windows().CreateWindowExW(frame);
    device.WillAnswer(IDOK);
    ShowRefusal(device.Pump, owner, u"The item could not be deleted.");
    EXPECT_THAT(device.MessagesShown(), ElementsAre(u"Tavo Calendar|The item could not be deleted.|OK"));
    EXPECT_THAT(device.Host.Seen.BoxOwners, ElementsAre(owner));
    EXPECT_EQ(device.Host.Seen.Boxes.back().Icon, MessageBoxIcon::Exclamation);
}

} // namespace

} // namespace tavo
