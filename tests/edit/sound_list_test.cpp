// The sound list and listening to what it holds.
#include "tests/edit/edit_desk.h"

#include <gtest/gtest.h>

namespace tavo::test {
namespace {

using Texts = std::vector<std::u16string>;

const Point kPlayIcon{196, 130}; // of an alarm
const Point kStopIcon{214, 130};

class SoundList : public testing::Test {
  protected:
    Texts& Calls() { return Desk.Device.Host().SoundCalls.Calls; }

    Oid GivenAlarm(std::u16string_view sound) {
        return Desk.GivenAppointment(u"Wake", At(2026, 11, 23, 7, 0), At(2026, 11, 23, 7, 0), [&](IAppointment& item) {
            EXPECT_EQ(item.put_ReminderSet(true), Status::Ok);
            EXPECT_EQ(item.put_ReminderOptions(29), Status::Ok);
            EXPECT_EQ(item.put_ReminderSoundFile(sound), Status::Ok);
        });
    }

    void CancelNewAlarm() {
        Desk.Cancel();
        EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDCANCEL);
    }

    // The button is reached with Tab alone: the tap in its place is the icons'.
    void ShowButton() {
        Desk.ShowRow(4);
        Desk.Device.Key(VK_TAB);
        Desk.Check([&] {
            EXPECT_TRUE(Desk.Device.See.IsShown(kEditPreview));
            EXPECT_EQ(Desk.PlaceOf(kEditPreview), Rect::FromSize(200, 119, 30, 20));
        });
    }

    EditDesk Desk;
};

TEST_F(SoundList, HoldsSoundOffAndEveryWaveFileWithoutItsFolder) {
    const std::vector<std::uint8_t> bytes{1};
    for (const std::u16string_view other : {u"\\Windows\\song.mp3", u"\\Windows\\song.wma", u"\\Windows\\notes.txt"}) {
        EXPECT_EQ(Desk.Device.Host().Files().WriteWholeFile(other, bytes), ErrorCode::Success);
    }
    Desk.Check([&] {
        EXPECT_EQ(Desk.Device.See.ListOf(kEditSound), (Texts{u"Sound off", u"bell.wav", u"chime.wav"}));
        EXPECT_EQ(Desk.TextOf(kEditSound), u"Sound off");
    });
    CancelNewAlarm();
}

TEST_F(SoundList, SelectsTheStoredSound) {
    const Oid oid = GivenAlarm(u"chime.wav");
    Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditSound), u"chime.wav"); });
    Desk.Cancel();
    EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
}

TEST_F(SoundList, AStoredSoundMustBeEqualToTheLetter) {
    for (const std::u16string_view sound : {u"Chime.wav", u"\\Windows\\chime.wav", u"gone.wav"}) {
        const Oid oid = GivenAlarm(sound);
        Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditSound), u"Sound off"); });
        Desk.Cancel();
        EXPECT_EQ(Desk.RunExisting(kModeAlarm, oid), IDCANCEL);
    }
}

TEST_F(SoundList, ChoosingASoundEnablesItsPreviewAndSoundOffDisablesIt) {
    const auto isEnabled = [&] {
        return Desk.Device.Host().Windows().IsWindowEnabled(Desk.Device.See.Control(kEditPreview));
    };
    Desk.ChooseSound(u"bell.wav");
    Desk.Check([&] { EXPECT_TRUE(isEnabled()); });
    Desk.ChooseSound(u"Sound off");
    Desk.Check([&] { EXPECT_FALSE(isEnabled()); });
    CancelNewAlarm();
}

TEST_F(SoundList, TheFirstIconPlaysAndTheSecondStops) {
    Desk.ChooseSound(u"bell.wav");
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    Desk.Check([&] { EXPECT_EQ(Calls(), Texts{u"\\Windows\\bell.wav"}); });
    Desk.Device.Tap(213, kPlayIcon.Y); // still the first
    Desk.Check([&] { EXPECT_EQ(Calls(), (Texts{u"\\Windows\\bell.wav", u"\\Windows\\bell.wav"})); });
    Desk.Device.Tap(kStopIcon.X, kStopIcon.Y);
    Desk.Check([&] {
        EXPECT_EQ(Calls().back(), u"");
        EXPECT_TRUE(Desk.Device.Host().SoundCalls.Playing.empty());
    });
    Desk.Device.Tap(235, kStopIcon.Y);
    Desk.Check([&] { EXPECT_EQ(Calls().back(), u""); });
    CancelNewAlarm();
}

TEST_F(SoundList, LeftOfTheIconsIsTheList) {
    Desk.ChooseSound(u"bell.wav");
    Desk.Device.Tap(2, 2);
    Desk.Device.Tap(195, kPlayIcon.Y);
    Desk.Check([&] {
        EXPECT_TRUE(Calls().empty());
        EXPECT_TRUE(Desk.Device.See.IsShown(kEditSound));
    });
    CancelNewAlarm();
}

TEST_F(SoundList, ThereIsNothingToPlayWhileTheSoundIsOff) {
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    Desk.Check([&] {
        for (const std::u16string& call : Calls()) {
            EXPECT_EQ(call, u""); // stopping is harmless
        }
        EXPECT_TRUE(Desk.Device.Host().SoundCalls.Playing.empty());
        EXPECT_FALSE(Desk.Device.See.FindItem(PaintedRole::Button, u"Play")->Enabled);
    });
    CancelNewAlarm();
}

TEST_F(SoundList, WhatStillPlaysStopsAtATapOnPlayWhenTheSoundIsOff) {
    Desk.ChooseSound(u"bell.wav");
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    Desk.ChooseSound(u"Sound off");
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    Desk.Check([&] { EXPECT_EQ(Calls(), (Texts{u"\\Windows\\bell.wav", u""})); });
    CancelNewAlarm();
}

TEST_F(SoundList, ThePlayIconIsPressedAsLongAsItPlaysAndEnabledWhereThereIsASound) {
    const auto expect = [this](bool enabled, bool pressed) {
        Desk.Check([this, enabled, pressed] {
            const std::optional<PaintedItem> icon = Desk.Device.See.FindItem(PaintedRole::Button, u"Play");
            ASSERT_TRUE(icon.has_value());
            EXPECT_EQ(icon->Enabled, enabled);
            EXPECT_EQ(icon->Pressed, pressed);
        });
    };
    expect(false, false);
    Desk.ChooseSound(u"bell.wav");
    expect(true, false);
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    expect(true, true);
    Desk.Device.Tap(kStopIcon.X, kStopIcon.Y);
    expect(true, false);
    Desk.ChooseSound(u"Sound off");
    expect(false, false);
    CancelNewAlarm();
}

TEST_F(SoundList, TheButtonPlaysAndStopsByTurns) {
    Desk.ChooseSound(u"chime.wav");
    ShowButton();
    Desk.Check([&] { EXPECT_EQ(Desk.TextOf(kEditPreview), u">"); });
    Desk.Device.Key(VK_SPACE);
    Desk.Check([&] {
        EXPECT_EQ(Calls(), Texts{u"\\Windows\\chime.wav"});
        EXPECT_EQ(Desk.TextOf(kEditPreview), u"[]");
    });
    Desk.Device.Key(VK_SPACE);
    Desk.Check([&] {
        EXPECT_EQ(Calls(), (Texts{u"\\Windows\\chime.wav", u""}));
        EXPECT_EQ(Desk.TextOf(kEditPreview), u">");
    });
    Desk.Device.Key(VK_SPACE);
    Desk.Check([&] {
        EXPECT_EQ(Calls(), (Texts{u"\\Windows\\chime.wav", u"", u"\\Windows\\chime.wav"}));
        EXPECT_EQ(Desk.TextOf(kEditPreview), u"[]");
    });
    CancelNewAlarm();
}

TEST_F(SoundList, WhatStillPlaysStopsWithTheDialog) {
    Desk.ChooseSound(u"bell.wav");
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    CancelNewAlarm();
    EXPECT_EQ(Calls(), (Texts{u"\\Windows\\bell.wav", u""}));
    Desk.Subject(u"Wake");
    Desk.ChooseSound(u"chime.wav");
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    Desk.Ok();
    EXPECT_EQ(Desk.RunNew(kModeNewAlarm), IDOK);
    EXPECT_EQ(Calls(), (Texts{u"\\Windows\\bell.wav", u"", u"\\Windows\\chime.wav", u""}));
}

TEST_F(SoundList, WhoNeverListenedStopsNothing) {
    CancelNewAlarm();
    EXPECT_TRUE(Calls().empty());
}

TEST_F(SoundList, AFileThatIsGoneMeanwhileLeavesSilence) {
    Desk.ChooseSound(u"bell.wav");
    Desk.Check([&] { EXPECT_EQ(Desk.Device.Host().Files().DeleteFileW(u"\\Windows\\bell.wav"), ErrorCode::Success); });
    Desk.Device.Tap(kPlayIcon.X, kPlayIcon.Y);
    Desk.Check([&] {
        EXPECT_TRUE(Desk.Device.Host().SoundCalls.Playing.empty());
        EXPECT_EQ(Desk.TextOf(kEditPreview), u">");
    });
    CancelNewAlarm();
}

} // namespace
} // namespace tavo::test
