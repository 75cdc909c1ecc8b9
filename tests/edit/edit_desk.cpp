// Working the dialog.
#include "tests/edit/edit_desk.h"

#include "host/shell/picker_input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavo::test {

namespace {

constexpr int kRowStep = 26;
constexpr int kEditingControls[] = {
    kEditSubject,  kEditStartDate,     kEditStartTime,    kEditEndDate, kEditEndTime, kEditAllDay, kEditRecurrence,
    kEditReminder, kEditReminderValue, kEditReminderUnit, kEditSound,   kEditPreview, kEditMemo};

headless::DeviceOptions SetAt(headless::DeviceOptions options, const SYSTEMTIME& now) {
    options.Now = now;
    return options;
}

} // namespace

EditDesk::EditDesk(const SYSTEMTIME& now, headless::DeviceOptions options)
    : OwnDevice(SetAt(std::move(options), now)), StoreWords(Device.Host()), Pump(Device.Host()), State(Pump) {
    const std::vector<std::uint8_t> bytes{1};
    for (const std::u16string_view name : {u"bell.wav", u"chime.wav"}) {
        EXPECT_EQ(Device.Host().Files().WriteWholeFile(std::u16string(u"\\Windows\\").append(name), bytes),
                  ErrorCode::Success);
    }
    EXPECT_TRUE(State.Store.OpenStore());
}

EditDesk::~EditDesk() {
    State.Store.CloseStore();
}

int EditDesk::RunNew(std::int32_t mode) {
    return Run(mode, {});
}

int EditDesk::RunExisting(std::int32_t mode, Oid oid) {
    return Run(mode, Load(oid));
}

int EditDesk::Run(std::int32_t mode, const AppointmentData& item) {
    Mode = mode;
    EditRequest request;
    request.Kind = KindOfMode(mode);
    if (!IsNewItem(mode)) {
        request.Item = item;
    }
    request.Owner = OpenedFromCalendar ? nullptr : this;
    request.InkEditor = EditInk ? this : nullptr;
    request.Continued = Continued;
    CAppointmentDlg dialog(Pump, State, std::move(request));
    const int result = dialog.DoModal();
    for (const std::string& problem : Device.Problems) {
        ADD_FAILURE() << problem;
    }
    return Pump.HasQuit() ? kLeftOpen : result;
}

AppointmentData EditDesk::Load(Oid oid) {
    AppointmentData record;
    EXPECT_EQ(State.Store.LoadAppointment(oid, record), oid);
    return record;
}

Oid EditDesk::LastSaved() const {
    return Calls.empty() ? 0 : Calls.back().Oid;
}

DATE EditDesk::ToDate(const SYSTEMTIME& moment) {
    DATE date = 0;
    EXPECT_TRUE(Device.Host().Locale().SystemTimeToVariantTime(moment, date));
    return date;
}

SavedItem EditDesk::Read(Oid oid) {
    SavedItem saved;
    ComPtr<IAppointment> item;
    const ComPtr<IPOutlookApp> store = Connect();
    EXPECT_EQ(store->GetItemFromOid(oid, item), Status::Ok);
    if (!item) {
        return saved;
    }
    const auto expect = [](Status status) { EXPECT_EQ(status, Status::Ok); };
    expect(item->get_Subject(saved.Subject));
    expect(item->get_Location(saved.Location));
    expect(item->get_Categories(saved.Categories));
    expect(item->get_Start(saved.Start));
    expect(item->get_End(saved.End));
    expect(item->get_Duration(saved.Duration));
    expect(item->get_AllDayEvent(saved.AllDay));
    expect(item->get_BusyStatus(saved.Busy));
    expect(item->get_Sensitivity(saved.Sensitivity));
    expect(item->get_ReminderSet(saved.ReminderSet));
    expect(item->get_ReminderOptions(saved.ReminderOptions));
    expect(item->get_ReminderMinutesBeforeStart(saved.ReminderMinutes));
    expect(item->get_ReminderSoundFile(saved.ReminderSound));
    expect(item->get_IsRecurring(saved.IsRecurring));
    return saved;
}

SavedPattern EditDesk::ReadPattern(Oid oid) {
    SavedPattern saved;
    ComPtr<IAppointment> item;
    ComPtr<IRecurrencePattern> pattern;
    const ComPtr<IPOutlookApp> store = Connect();
    bool recurring = false;
    EXPECT_EQ(store->GetItemFromOid(oid, item), Status::Ok);
    if (!item || Failed(item->get_IsRecurring(recurring)) || !recurring ||
        Failed(item->GetRecurrencePattern(pattern))) {
        return saved;
    }
    const auto expect = [](Status status) { EXPECT_EQ(status, Status::Ok); };
    expect(pattern->get_RecurrenceType(saved.Type));
    expect(pattern->get_PatternStartDate(saved.Start));
    expect(pattern->get_NoEndDate(saved.NoEnd));
    expect(pattern->get_PatternEndDate(saved.End));
    expect(pattern->get_StartTime(saved.StartTime));
    expect(pattern->get_EndTime(saved.EndTime));
    expect(pattern->get_Duration(saved.Duration));
    expect(pattern->get_Occurrences(saved.Occurrences));
    expect(pattern->get_Interval(saved.Interval));
    expect(pattern->get_DayOfWeekMask(saved.Mask));
    expect(pattern->get_DayOfMonth(saved.DayOfMonth));
    expect(pattern->get_Instance(saved.Instance));
    expect(pattern->get_MonthOfYear(saved.Month));
    return saved;
}

std::int32_t EditDesk::CountItems() {
    return State.Store.CountAppointments();
}

bool EditDesk::IsAppointment() const {
    return Mode == kModeNewAppointment || Mode == kModeAppointment;
}

int EditDesk::RowOf(int control) const {
    const AppointmentForm& form = FormOfKind(KindOfMode(Mode));
    for (std::size_t row = 0; row < form.Rows.size(); ++row) {
        for (const FormField& field : form.Rows[row].Fields) {
            if (field.Control == control) {
                return static_cast<int>(row);
            }
        }
    }
    ADD_FAILURE() << "no row for control " << control;
    return 0;
}

void EditDesk::ShowRow(int row, int x) {
    Device.Do([this, row, x] {
        const int top = IsAppointment() ? 10 : 15;
        Device.Tap(x, top + row * kRowStep + kRowStep / 2);
    });
}

void EditDesk::Subject(const std::u16string& text) {
    ShowRow(0);
    Device.TypeInto(kEditSubject, text);
}

void EditDesk::PickStartDate(int year, int month, int day) {
    ShowRow(1);
    Device.PickDate(kEditStartDate, year, month, day);
}

void EditDesk::PickStartTime(int hour, int minute, int second) {
    Device.Do([this] { ShowRow(RowOf(kEditStartTime), 160); });
    Device.PickTime(kEditStartTime, hour, minute, second);
}

void EditDesk::PickEndDate(int year, int month, int day) {
    ShowRow(2);
    Device.PickDate(kEditEndDate, year, month, day);
}

void EditDesk::PickEndTime(int hour, int minute, int second) {
    ShowRow(2, 160);
    Device.PickTime(kEditEndTime, hour, minute, second);
}

void EditDesk::ChooseRecurrence(int choice) {
    Device.Do([this] { ShowRow(RowOf(kEditRecurrence)); });
    Device.Choose(kEditRecurrence, choice);
}

void EditDesk::ChooseReminder(bool yes) {
    Device.Do([this] { ShowRow(RowOf(kEditReminder)); });
    Device.Choose(kEditReminder, yes ? 0 : 1);
}

void EditDesk::TypeLead(const std::u16string& text) {
    Device.Do([this] { ShowRow(RowOf(kEditReminderValue), 120); });
    Device.TypeInto(kEditReminderValue, text);
}

void EditDesk::ChooseLeadUnit(int unit) {
    Device.Do([this] { ShowRow(RowOf(kEditReminderUnit), 160); });
    Device.Choose(kEditReminderUnit, unit);
}

void EditDesk::ChooseSound(std::u16string name) {
    Device.Do([this] { ShowRow(RowOf(kEditSound)); });
    Device.Choose(kEditSound, std::move(name));
}

void EditDesk::TapAllDay() {
    ShowRow(3);
    Device.TapControl(kEditAllDay);
}

void EditDesk::Ok() {
    Device.TapControl(IDOK);
}

void EditDesk::Cancel() {
    Device.TapControl(IDCANCEL);
}

WindowHandle EditDesk::Shown(int id) {
    const shell::WindowTree& tree = Device.Host().State.Tree;
    for (const WindowHandle window : tree.Subtree(Device.See.Top())) {
        const shell::ControlState* control = tree.FindControl(window);
        if (control != nullptr && control->Id == id && tree.IsVisible(window)) {
            return window;
        }
    }
    return WindowHandle::None;
}

void EditDesk::TapShown(int id) {
    Device.Do([this, id] {
        const WindowHandle control = Shown(id);
        ASSERT_NE(control, WindowHandle::None) << id;
        const Rect bounds = Device.Host().State.Tree.ScreenBounds(control);
        Device.TapScreen({(bounds.Left + bounds.Right) / 2, (bounds.Top + bounds.Bottom) / 2});
    });
}

void EditDesk::ChooseShown(int id, int index) {
    TapShown(id); // opens the list
    Device.Do([this, id, index] {
        ASSERT_EQ(Device.Host().State.OpenList, Shown(id)) << id;
        Device.Host().ControlActions.Choose(Shown(id), index);
    });
}

void EditDesk::TypeIntoShown(int id, std::u16string text) {
    Device.Do([this, id, text = std::move(text)] {
        ASSERT_TRUE(Device.Host().State.TakesInput(Shown(id))) << id;
        Device.Host().ControlActions.Focus(Shown(id));
        Device.Host().ControlActions.Edit(Shown(id), text);
    });
}

std::u16string EditDesk::ValueOf(int control) const {
    for (const PaintedItem& item : Device.See.Items()) {
        if (item.Role == PaintedRole::Cell && item.Id == control) {
            return item.Name;
        }
    }
    return u"(not painted)";
}

int EditDesk::WidthOf(std::u16string_view text) {
    std::vector<int> widths;
    Device.Host().Drawing().GetTextExtentExPointW(State.Fonts.FontArial10, text, widths);
    return widths.empty() ? 0 : widths.back();
}

SYSTEMTIME EditDesk::PickerOf(int id) {
    return Device.Host().Controls().GetSystemtime(Device.See.Control(id));
}

std::u16string EditDesk::ShownInPicker(int id) {
    return shell::FaceOf(*Device.Host().State.Tree.Find(Device.See.Control(id))).Text;
}

Rect EditDesk::PlaceOf(int id) {
    return Device.Host().State.Tree.Find(Device.See.Control(id))->Bounds;
}

std::vector<int> EditDesk::ShownEditingControls() const {
    std::vector<int> shown;
    std::copy_if(std::begin(kEditingControls), std::end(kEditingControls), std::back_inserter(shown),
                 [this](int control) { return Device.See.IsShown(control); });
    return shown;
}

std::vector<std::u16string> EditDesk::Messages() {
    std::vector<std::u16string> messages;
    for (const MessageBoxDescription& box : Device.Host().Seen.Boxes) {
        messages.push_back(box.Caption + u"|" + box.Text);
        if (box.Icon == MessageBoxIcon::Exclamation) {
            messages.back() += u"!";
            EXPECT_EQ(box.Buttons, MessageBoxButtons::Ok);
        }
    }
    return messages;
}

void EditDesk::UpdateOwnerList(const AppointmentData& record, bool isNew, Oid oid) {
    Calls.push_back({record, isNew, oid});
    if (WhenTold) {
        WhenTold();
    }
}

int EditDesk::EditInkNote(const InkHome& home) {
    LastHome = home;
    return EditInk();
}

} // namespace tavo::test
