// The Settings page of the running program, from which memos are deleted.
#pragma once

#include "tests/schedule/schedule_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <vector>

namespace tavo::test {

inline std::vector<std::string> MemosIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() == ".pwi") {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class MemoDeletion : public testing::Test {
  protected:
    void Start() {
        ASSERT_TRUE(Desk.Start());
        Desk.ShowPage(PageNumber::Settings);
    }

    void BeginDeletion(std::initializer_list<int> boxes) {
        for (const int box : boxes) {
            Desk.Device.TapControl(box);
        }
        Desk.Device.TapControl(kSettingsDelete);
        Desk.Device.AnswerBox(IDYES);
    }

    void Delete(std::initializer_list<int> boxes) {
        BeginDeletion(boxes);
        EXPECT_TRUE(Desk.Settle());
    }

    void Undo() {
        Desk.Device.Key('Z', kModifierControl);
        EXPECT_TRUE(Desk.Settle());
        Desk.LetNoticesArrive();
    }

    std::u16string UndoText() {
        std::u16string text;
        Desk.Device.OpenMenu(u"Tools");
        Desk.Device.Do([&] { text = Desk.Device.See.MenuBar()->Menus.back().Children.front().Text; });
        Desk.Device.Key(VK_ESCAPE);
        EXPECT_TRUE(Desk.Settle());
        return text;
    }

    std::vector<std::string> Memos() const { return MemosIn(Desk.DataFolder()); }

    std::vector<std::string> Deleted() const { return MemosIn(Desk.DataFolder() / "Deleted"); }

    // More than are deleted without a display.
    void GivenManyMemos() {
        for (int number = 0; number < kMany; ++number) {
            char name[32];
            static_cast<void>(std::snprintf(name, sizeof name, "20041103_%06d.pwi", number));
            Desk.WriteFile(name, "ink");
        }
    }

    static constexpr int kMany = 2600;
    ScheduleDesk Desk;
};

class LongMemoDeletion : public MemoDeletion {
  protected:
    LongMemoDeletion() {
        Start();
        GivenManyMemos();
        Alarms = Desk.GivenAlarms(7);
    }

    void ExpectEverythingThere() {
        EXPECT_EQ(Memos().size(), static_cast<std::size_t>(kMany));
        EXPECT_THAT(Deleted(), testing::IsEmpty());
        EXPECT_EQ(Desk.ListOf(ItemKind::Alarm), Alarms);
        for (const Oid alarm : Alarms) {
            EXPECT_TRUE(Desk.Exists(alarm)) << alarm;
        }
    }

    std::vector<Oid> Alarms;
};

} // namespace tavo::test
