// The menus as they are stored.
#include "res/menus.h"

#include "res/resource_ids.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace tavo {

namespace {

struct Entry {
    std::u16string Text; // empty of a separator
    int Id = 0;

    friend bool operator==(const Entry&, const Entry&) = default;
};

std::vector<Entry> EntriesOf(const MenuItem& popup) {
    std::vector<Entry> entries;
    for (const MenuItem& item : popup.Children) {
        EXPECT_EQ(item.IsSeparator, item.Text.empty());
        EXPECT_EQ(item.IsPopup, !item.Children.empty());
        EXPECT_TRUE(item.Enabled);
        entries.push_back({item.Text, item.Id});
    }
    return entries;
}

TEST(Menus, CommandsOnAnItem) {
    const std::vector<MenuItem> menus = LoadMenuW(131);
    ASSERT_EQ(menus.size(), 2U);
    EXPECT_EQ(menus[kPopupSchedule].Text, u"schedule");
    EXPECT_TRUE(menus[kPopupSchedule].IsPopup);
    const std::vector<Entry> expected{{u"View...", 32804},
                                      {u"Modify...", 32771},
                                      {u"Delete...", 32772},
                                      {u"Pause", 32774},
                                      {u"", 0},
                                      {u"Copy to Alarm", 32773},
                                      {u"Copy to Holiday", 32775},
                                      {u"Copy to Anniversary", 32776}};
    EXPECT_EQ(EntriesOf(menus[kPopupSchedule]), expected);
}

TEST(Menus, DayMenu) {
    const std::vector<MenuItem> menus = LoadMenuW(131);
    ASSERT_EQ(menus.size(), 2U);
    EXPECT_EQ(menus[kPopupCalendar].Text, u"calendar");
    const std::vector<Entry> expected{
        {u"Alarm:", 32793}, {u"Holiday:", 32794}, {u"Anniversary:", 32795}, {u"Schedule:", 32796},
        {u"", 0},           {u"Memo:", 32802},    {u"Add memo...", 32798}};
    EXPECT_EQ(EntriesOf(menus[kPopupCalendar]), expected);
}

TEST(Menus, InkEditor) {
    const std::vector<MenuItem> menus = LoadMenuW(206);
    ASSERT_EQ(menus.size(), 2U);
    EXPECT_EQ(menus[0].Text, u"Edit");
    const std::vector<Entry> edit{{u"Undo", 32781}, {u"Redo", 32782},  {u"", 0},          {u"Cut", 32783},
                                  {u"Copy", 32784}, {u"Paste", 32785}, {u"Clear", 32786}, {u"Select All", 32780}};
    EXPECT_EQ(EntriesOf(menus[0]), edit);
    EXPECT_EQ(menus[1].Text, u"Tool");
    const std::vector<Entry> tool{{u"75%", 32787},  {u"100%", 32788}, {u"150%", 32789},       {u"200%", 32790},
                                  {u"300%", 32791}, {u"", 0},         {u"Delete Note", 32803}};
    EXPECT_EQ(EntriesOf(menus[1]), tool);
    constexpr std::array<std::u16string_view, 8> keys{u"Ctrl+Z", u"Ctrl+Y", u"",    u"Ctrl+X",
                                                      u"Ctrl+C", u"Ctrl+V", u"Del", u"Ctrl+A"};
    for (std::size_t index = 0; index < keys.size(); ++index) {
        EXPECT_EQ(menus[0].Children[index].Shortcut, keys[index]);
    }
}

TEST(Menus, PagesHaveTools) {
    const std::vector<MenuItem> menus = LoadMenuW(207);
    ASSERT_EQ(menus.size(), 1U);
    EXPECT_EQ(menus[0].Text, u"Tools");
    EXPECT_TRUE(menus[0].IsPopup);
    const std::vector<Entry> expected{{u"Undo", kCommandUndoStep},
                                      {u"Find...", kCommandFind},
                                      {u"Go to date...", kCommandGoToDate},
                                      {u"", 0},
                                      {u"New", 0},
                                      {u"", 0},
                                      {u"Import...", kCommandImport},
                                      {u"Export...", kCommandExport},
                                      {u"Backup...", kCommandBackup},
                                      {u"Print month...", kCommandPrintMonth},
                                      {u"", 0},
                                      {u"Keys...", kCommandKeys},
                                      {u"About Tavo Calendar...", 57664},
                                      {u"Exit", kCommandExit}};
    EXPECT_EQ(EntriesOf(menus[0]), expected);
    EXPECT_EQ(menus[0].Children[0].Shortcut, u"Ctrl+Z");
    EXPECT_EQ(menus[0].Children[1].Shortcut, u"Ctrl+F");
    EXPECT_EQ(menus[0].Children[2].Shortcut, u"Ctrl+G");
    EXPECT_EQ(menus[0].Children[9].Shortcut, u"Ctrl+P");
    const MenuItem& made = menus[0].Children[4];
    const std::vector<Entry> kinds{{u"Alarm...", kCommandNewAlarm},
                                   {u"Holiday...", kCommandNewHoliday},
                                   {u"Anniversary...", kCommandNewAnniversary},
                                   {u"Appointment...", kCommandNewAppointment}};
    EXPECT_EQ(EntriesOf(made), kinds);
    EXPECT_EQ(made.Children[0].Shortcut, u"Ctrl+1");
    EXPECT_EQ(made.Children[1].Shortcut, u"Ctrl+2");
    EXPECT_EQ(made.Children[2].Shortcut, u"Ctrl+3");
    EXPECT_EQ(made.Children[3].Shortcut, u"Ctrl+4");
}

TEST(Menus, TheSchedulePageHasItsOwnMenuBeforeTools) {
    const std::vector<MenuItem> menus = LoadMenuW(kMenuSchedulePage);
    ASSERT_EQ(menus.size(), 2U);
    EXPECT_EQ(menus[0], LoadMenuW(kMenuPopups).at(kPopupSchedule));
    EXPECT_EQ(menus[1], LoadMenuW(kMenuPage).front());
}

TEST(Menus, AnUnknownNumberHasNone) {
    EXPECT_TRUE(LoadMenuW(130).empty());
}

TEST(Menus, RangesOfTheDayMenuFollowEachOtherWithoutAGap) {
    EXPECT_EQ(kCommandFirstAlarm, 33001);
    EXPECT_EQ(kCommandLastAlarm, 33200);
    EXPECT_EQ(kCommandFirstHoliday, 33201);
    EXPECT_EQ(kCommandLastHoliday, 33400);
    EXPECT_EQ(kCommandFirstAnniversary, 33401);
    EXPECT_EQ(kCommandLastAnniversary, 33600);
    EXPECT_EQ(kCommandFirstSchedule, 33601);
    EXPECT_EQ(kCommandLastSchedule, 33800);
    EXPECT_EQ(kCommandFirstMemo, 33801);
    EXPECT_EQ(kCommandLastMemo, 34000);
}

} // namespace

} // namespace tavo
