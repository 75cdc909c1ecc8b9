// The parts, and the dialog's template.
#include "tests/conformance/scratch_program.h"

#include <algorithm>

namespace tavo::conformance {

namespace {

constexpr std::u16string_view kColours[] = {u"Red", u"Green", u"Blue"};

constexpr DialogItem kItems[] = {
    {ControlKind::Label, kLabel, u"Subject :", {3, 2, 40, 14}},
    {ControlKind::Edit, kEdit, u"", {44, 2, 150, 14}},
    {ControlKind::NumberEdit, kNumber, u"", {44, 16, 80, 28}},
    {ControlKind::FixedList, kFixedList, u"", {3, 30, 70, 42}, true, false, 0, 0, kColours},
    {ControlKind::EditableList, kEditableList, u"", {76, 30, 150, 42}, true, false, 0, 0, kColours},
    {ControlKind::DatePicker, kDate, u"", {3, 44, 70, 56}},
    {ControlKind::TimePicker, kTime, u"", {76, 44, 150, 56}},
    {ControlKind::CheckBox, kCheck, u"All day", {3, 58, 70, 70}},
    {ControlKind::RadioButton, kFirstOfOne, u"Day", {3, 72, 50, 82}, true, true},
    {ControlKind::RadioButton, kSecondOfOne, u"The", {53, 72, 100, 82}},
    {ControlKind::RadioButton, kFirstOfTwo, u"Never", {3, 84, 50, 94}, true, true},
    {ControlKind::RadioButton, kSecondOfTwo, u"After", {53, 84, 100, 94}},
    {ControlKind::PushButton, kPush, u">", {3, 96, 40, 108}},
    {ControlKind::PictureButton, kPicture, u"", {44, 96, 60, 112}, true, false, kPictureOff, kPictureOn},
    {ControlKind::ScrollBar, kScroll, u"", {140, 60, 150, 120}},
    {ControlKind::Ink, kPaper, u"", {3, 114, 130, 150}},
    {ControlKind::Edit, kHiddenEdit, u"", {84, 16, 150, 28}, false},
};

} // namespace

const DialogTemplate kPageForm{139, u"Scratch page", {159, 110}, 10, {}};
const DialogTemplate kControlsForm{144, u"Scratch dialog", {159, 150}, 10, kItems};

void MessageLog::Take(const Message& message) {
    All.push_back(message);
    if (Hook) {
        Hook(message);
    }
}

int MessageLog::Count(MessageNumber number) const {
    return static_cast<int>(
        std::count_if(All.begin(), All.end(), [&](const Message& message) { return message.Number == number; }));
}

int MessageLog::Count(MessageNumber number, int id, int code) const {
    return static_cast<int>(std::count_if(All.begin(), All.end(), [&](const Message& message) {
        return message.Number == number && message.Id == id && message.Code == code;
    }));
}

std::vector<int> MessageLog::CodesOf(int id) const {
    std::vector<int> codes;
    for (const Message& message : All) {
        if (message.Id == id) {
            codes.push_back(message.Code);
        }
    }
    return codes;
}

const MessageMap& ScratchPage::Messages() {
    static constexpr MessageEntry entries[] = {On<&ScratchPage::NotePaint>(WM_PAINT)};
    static const MessageMap map{entries, &CPage::Messages()};
    return map;
}

bool ScratchPage::NotePaint(const Message& message) {
    Log.Take(message);
    return false;
}

void ScratchPage::Paint() {
    constexpr Color white = Color::FromRgb(255, 255, 255);
    DropPainted();
    Surface().FillRect(Rect::FromSize(0, 0, kPageSurface.Width, kPageSurface.Height), white);
    if (Draw) {
        Draw(Surface());
    }
    PresentSurface();
}

const MessageMap& ScratchDialog::Messages() {
    static constexpr MessageEntry entries[] = {On<&ScratchDialog::Note>(WM_COMMAND)};
    static const MessageMap map{entries, &CDialog::Messages()};
    return map;
}

bool ScratchDialog::Note(const Message& message) {
    Log.Take(message);
    return false;
}

void ScratchDialog::HandleByDefault(const Message& message) {
    if (message.Number != WM_COMMAND) { // those were noted before the dialog's own handlers
        Log.Take(message);
    }
}

void ScratchDialog::OnInitDialog() {
    if (OnOpen) {
        OnOpen();
    }
}

void ScratchDialog::OnCancel() {
    if (!MayClose || MayClose()) {
        CDialog::OnCancel();
    }
}

Point PlaceOf(int control) {
    constexpr int inset = 6;
    for (const DialogItem& item : kItems) {
        if (item.Id == control) {
            const Rect place = ToPixels(item.Bounds);
            return {place.Left + inset, kClientArea.Top + (place.Top + place.Bottom) / 2};
        }
    }
    return {};
}

} // namespace tavo::conformance
