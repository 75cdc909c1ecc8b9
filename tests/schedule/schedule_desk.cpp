// The words, put into practice.
#include "tests/schedule/schedule_desk.h"

#include "framework/format.h"
#include "store/page_number.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <span>

namespace tavo::test {

namespace {

constexpr int kNextArrowX = 196;
constexpr int kArrowY = 20;
constexpr int kNoticeMilliseconds = 500;

} // namespace

void ScheduleDesk::Tag(ItemKind kind, Oid oid) {
    State().Categories.ListOf(static_cast<TagList>(IndexOf(kind))).Append(oid);
}

std::vector<Oid> ScheduleDesk::GivenAlarms(int count) {
    std::vector<Oid> oids;
    for (int number = 1; number <= count; ++number) {
        const SYSTEMTIME noon = At(2004, 11, 3 + number, 12);
        oids.push_back(GivenAppointment(FormatText(u"Alarm %d", number), noon, noon));
        Tag(ItemKind::Alarm, oids.back());
    }
    return oids;
}

std::vector<Oid> ScheduleDesk::ListOf(ItemKind kind) {
    const std::span<const Oid> all = State().Categories.ListOf(static_cast<TagList>(IndexOf(kind))).All();
    return {all.begin(), all.end()};
}

bool ScheduleDesk::Exists(Oid oid) {
    AppointmentData record;
    return State().Store.LoadAppointment(oid, record) != 0;
}

void ScheduleDesk::Show(ItemKind kind) {
    if (!App) {
        EXPECT_TRUE(Start());
    }
    ShowPage(PageNumber::Schedule);
    for (std::size_t step = 0; step < IndexOf(kind); ++step) {
        Device.Tap(kNextArrowX, kArrowY);
    }
    EXPECT_TRUE(Settle());
}

std::vector<std::u16string> ScheduleDesk::Rows() const {
    std::vector<std::u16string> rows;
    for (const PaintedItem& item : Device.See.Items()) {
        if (item.Role == PaintedRole::Row) {
            rows.push_back(item.Name);
        }
    }
    return rows;
}

std::vector<std::u16string> ScheduleDesk::Headings() const {
    std::vector<std::u16string> headings = Rows();
    for (std::u16string& heading : headings) {
        heading.resize(std::min(heading.find(u", "), heading.size()));
    }
    return headings;
}

int ScheduleDesk::SelectedRow() const {
    for (const PaintedItem& item : Device.See.Items()) {
        if (item.Role == PaintedRole::Row && item.Selected) {
            return item.Id;
        }
    }
    return kNoRow;
}

std::vector<std::u16string> ScheduleDesk::ListTexts() {
    std::vector<std::u16string> texts;
    headless::HeadlessHost& host = Device.Host();
    for (const WindowHandle child : host.State.Tree.ChildrenOf(Device.See.Top())) {
        const headless::Frame* frame = host.State.Tree.IsVisible(child) ? host.Drawn.LastFrame(child) : nullptr;
        for (const headless::DrawCall& call : frame != nullptr ? frame->Calls : std::vector<headless::DrawCall>()) {
            if (call.Kind == headless::DrawKind::Text) {
                texts.push_back(call.Text);
            }
        }
    }
    return texts;
}

std::vector<std::u16string> ScheduleDesk::OpenMenu() {
    std::vector<std::u16string> texts;
    const auto& tracked = Device.Host().State.Menus.Tracked;
    EXPECT_TRUE(tracked.has_value());
    for (const MenuItem& item : tracked ? tracked->Items : std::vector<MenuItem>()) {
        const std::u16string text = item.IsSeparator ? u"-" : item.Text;
        texts.push_back(item.Enabled ? text : FormatText(u"(%s)", text));
    }
    return texts;
}

std::vector<std::u16string> ScheduleDesk::Boxes() {
    std::vector<std::u16string> texts;
    for (const MessageBoxDescription& box : Device.Host().Seen.Boxes) {
        texts.push_back(FormatText(u"%s|%s", box.Caption, box.Text));
    }
    return texts;
}

ScrollInfo ScheduleDesk::Bar() {
    return Device.Host().Controls().GetScrollInfo(Device.See.Control(kScheduleScrollBar));
}

SYSTEMTIME ScheduleDesk::Picked(int picker) {
    return Device.Host().Controls().GetSystemtime(Device.See.Control(picker));
}

void ScheduleDesk::PickPeriodDate(int picker, int year, int month, int day) {
    Device.OpenList(picker);
    Device.PickDate(picker, year, month, day);
    Device.CloseList(picker);
}

void ScheduleDesk::LetNoticesArrive() {
    Device.AdvanceClock(kNoticeMilliseconds);
    EXPECT_TRUE(Settle());
}

void ScheduleDesk::ChooseInRow(int row, int command) {
    Device.Tap(20, 37 + 51 * row + 25);
    Device.ChooseTracked(command);
}

} // namespace tavo::test
