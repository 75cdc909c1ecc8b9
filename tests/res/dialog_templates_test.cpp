// The dialog templates as they are stored.
#include "res/dialog_templates.h"

#include "res/resource_ids.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tavo {

namespace {

struct PageRow {
    const DialogTemplate& Form;
    int Id;
    std::u16string Title;
};

const DialogItem* FindItem(const DialogTemplate& form, int id) {
    for (const DialogItem& item : form.Items) {
        if (item.Id == id) {
            return &item;
        }
    }
    return nullptr;
}

TEST(DialogTemplates, PagesAreOneSizeInTenPoints) {
    const PageRow pages[] = {{kClockPageTemplate, 139, u"Clock"},
                             {kSchedulePageTemplate, 140, u"Schedule"},
                             {kCalendarPageTemplate, 142, u"Calendar"},
                             {kSettingsPageTemplate, 271, u"Settings"}};
    for (const PageRow& page : pages) {
        EXPECT_EQ(page.Form.Id, page.Id);
        EXPECT_EQ(page.Form.Title, page.Title);
        EXPECT_EQ(page.Form.Extent, (Size{159, 110})) << page.Id;
        EXPECT_EQ(page.Form.FontPoints, 10) << page.Id;
    }
}

TEST(DialogTemplates, TheClockHasNoControls) {
    EXPECT_TRUE(kClockPageTemplate.Items.empty());
}

TEST(DialogTemplates, TheCalendarHasAHiddenScrollBarOnly) {
    ASSERT_EQ(kCalendarPageTemplate.Items.size(), 1U);
    EXPECT_EQ(kCalendarPageTemplate.Items[0].Id, 1021);
    EXPECT_EQ(kCalendarPageTemplate.Items[0].Kind, ControlKind::ScrollBar);
    EXPECT_FALSE(kCalendarPageTemplate.Items[0].Visible);
}

TEST(DialogTemplates, AboutNamesTheProgramAndItsVersion) {
    EXPECT_EQ(kAboutTemplate.Id, 100);
    EXPECT_EQ(kAboutTemplate.Title, u"About Tavo Calendar");
    EXPECT_EQ(kAboutTemplate.Extent, (Size{153, 170}));
    EXPECT_EQ(kAboutTemplate.FontPoints, 8);
    ASSERT_EQ(kAboutTemplate.Items.size(), 4U);
    EXPECT_EQ(kAboutTemplate.Items[0].Text, u"Tavo Calendar Version 1.00");
    EXPECT_EQ(kAboutTemplate.Items[0].Bounds, (Rect{31, 20, 134, 28}));
    EXPECT_EQ(kAboutTemplate.Items[1].Bounds, (Rect{31, 32, 140, 40}));
    EXPECT_EQ(kAboutTemplate.Items[2].Bounds, (Rect{31, 46, 119, 54}));
    EXPECT_EQ(kAboutTemplate.Items[3].Text,
              u"(If you find any problem, suggestion\n  on this product, please send email\n  to us.  Thank you.)");
    EXPECT_EQ(kAboutTemplate.Items[3].Bounds, (Rect{11, 86, 134, 122}));
    EXPECT_EQ(kAboutIconPlace, (Rect{6, 22, 27, 42}));
}

TEST(DialogTemplates, ScheduleHasItsPeriodItsScrollBarAndPlacesForFourLists) {
    struct Row {
        int Id;
        ControlKind Kind;
        Rect Bounds;
    };

    const Row rows[] = {
        {1022, ControlKind::ScrollBar, {74, 70, 84, 110}}, {1002, ControlKind::Label, {17, 51, 36, 59}},
        {1003, ControlKind::Label, {14, 60, 33, 68}},      {1004, ControlKind::Label, {17, 72, 36, 80}},
        {1005, ControlKind::Label, {14, 84, 33, 92}},      {1026, ControlKind::DatePicker, {9, 4, 118, 19}},
        {1031, ControlKind::DatePicker, {9, 21, 118, 36}}};
    EXPECT_EQ(kSchedulePageTemplate.Items.size(), 7U);
    for (const Row& row : rows) {
        const DialogItem* item = FindItem(kSchedulePageTemplate, row.Id);
        ASSERT_NE(item, nullptr) << row.Id;
        EXPECT_EQ(item->Kind, row.Kind) << row.Id;
        EXPECT_EQ(item->Bounds, row.Bounds) << row.Id;
    }
}

TEST(DialogTemplates, SettingsHasABoxForEachClass) {
    struct Row {
        int Id;
        ControlKind Kind;
        std::u16string_view Text;
        Rect Bounds;
    };

    const Row rows[] = {{1051, ControlKind::CheckBox, u"All alarms", {12, 20, 151, 30}},
                        {1052, ControlKind::CheckBox, u"All holidays", {12, 30, 151, 40}},
                        {1053, ControlKind::CheckBox, u"All anniversaries", {12, 40, 153, 50}},
                        {1054, ControlKind::CheckBox, u"All appointments", {12, 50, 155, 60}},
                        {1055, ControlKind::CheckBox, u"All memos", {12, 60, 154, 70}},
                        {1056, ControlKind::PushButton, u"Delete", {12, 75, 62, 87}}};
    EXPECT_EQ(kSettingsPageTemplate.Items.size(), 7U);
    EXPECT_EQ(kSettingsPageTemplate.Items[0].Text, u"Delete...");
    for (const Row& row : rows) {
        const DialogItem* item = FindItem(kSettingsPageTemplate, row.Id);
        ASSERT_NE(item, nullptr) << row.Id;
        EXPECT_EQ(item->Kind, row.Kind) << row.Id;
        EXPECT_EQ(item->Text, row.Text) << row.Id;
        EXPECT_EQ(item->Bounds, row.Bounds) << row.Id;
    }
}

TEST(DialogTemplates, NoControlIdStandsTwiceInOneDialog) {
    EXPECT_FALSE(AllDialogTemplates().empty());
    for (const DialogTemplate* form : AllDialogTemplates()) {
        std::set<int> seen;
        for (const DialogItem& item : form->Items) {
            EXPECT_TRUE(item.Id == kStaticText || seen.insert(item.Id).second) << form->Id << " " << item.Id;
        }
    }
}

} // namespace

} // namespace tavo
