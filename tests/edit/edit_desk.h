// The edit dialog on a scripted device with a real store, and the words in which its tests work it.
#pragma once

#include "edit/appointment_dlg.h"
#include "host/headless/device.h"
#include "res/resource_ids.h"
#include "tests/support/test_device.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavo::test {

// What the dialog handed back.
struct OwnerCall {
    AppointmentData Record;
    bool IsNew = false;
    tavo::Oid Oid = 0;
};

// Everything that the store holds of an item, apart from its recurrence.
struct SavedItem {
    std::u16string Subject;
    std::u16string Location;
    std::u16string Categories;
    DATE Start = 0;
    DATE End = 0;
    std::int32_t Duration = -1;
    bool AllDay = false;
    std::int32_t Busy = -1;
    std::int32_t Sensitivity = -1;
    bool ReminderSet = false;
    std::int32_t ReminderOptions = -1;
    std::int32_t ReminderMinutes = -1;
    std::u16string ReminderSound;
    bool IsRecurring = false;
};

struct SavedPattern {
    std::int32_t Type = kRecursOnce;
    DATE Start = 0;
    bool NoEnd = false;
    DATE End = 0;
    DATE StartTime = 0;
    DATE EndTime = 0;
    std::int32_t Duration = -1;
    std::int32_t Occurrences = -1;
    std::int32_t Interval = -1;
    std::int32_t Mask = -1;
    std::int32_t DayOfMonth = -1;
    std::int32_t Instance = -1;
    std::int32_t Month = -1;
};

constexpr int kLeftOpen = -1; // the script ended before the dialog did

class EditDesk : public OwnDevice, public StoreWords, public IListOwner, public IInkNoteEditor {
  public:
    // Sounds "bell.wav" and "chime.wav" lie in the sound folder.
    explicit EditDesk(const SYSTEMTIME& now = At(2026, 11, 21, 9, 47), headless::DeviceOptions options = WithStore());
    ~EditDesk();

    // Opens the dialog, lets the script run to its end, and gives the dialog's result.
    int RunNew(std::int32_t mode);
    // On an item as its opener would: with the record that the store gives for it.
    int RunExisting(std::int32_t mode, Oid oid);
    int Run(std::int32_t mode, const AppointmentData& item);

    AppointmentData Load(Oid oid);
    SavedItem Read(Oid oid);
    SavedPattern ReadPattern(Oid oid);
    std::int32_t CountItems();
    Oid LastSaved() const;
    DATE ToDate(const SYSTEMTIME& moment);

    // Steps of the script.
    void Check(std::function<void()> look) { Device.Do(std::move(look)); }

    void Subject(const std::u16string& text); // shows the row, types
    void ShowRow(int row, int x = 70);        // by a tap in the row's middle
    void PickStartDate(int year, int month, int day);
    void PickStartTime(int hour, int minute, int second = 0);
    void PickEndDate(int year, int month, int day);
    void PickEndTime(int hour, int minute, int second = 0);
    void ChooseRecurrence(int choice);
    void ChooseReminder(bool yes);
    void TypeLead(const std::u16string& text);
    void ChooseLeadUnit(int unit);
    void ChooseSound(std::u16string name);
    void TapAllDay();
    void Ok();
    void Cancel();

    // The first control with this id that is visible in the window on top; None when there is none.
    WindowHandle Shown(int id);
    // Steps on such a control, for ids that several pages have.
    void TapShown(int id);
    void ChooseShown(int id, int index);
    void TypeIntoShown(int id, std::u16string text);

    std::u16string TextOf(int id) const { return Device.See.TextOf(id); }

    // The value that the form shows for a control: what was declared of it.
    std::u16string ValueOf(int control) const;
    // In the form's font.
    int WidthOf(std::u16string_view text);
    SYSTEMTIME PickerOf(int id);
    std::u16string ShownInPicker(int id); // what stands in it, with what is being typed
    Rect PlaceOf(int id);                 // in the dialog
    std::vector<int> ShownEditingControls() const;
    // All message boxes so far, as "caption|text", with "!" at the end where there is an exclamation icon.
    std::vector<std::u16string> Messages();

    void UpdateOwnerList(const AppointmentData& record, bool isNew, Oid oid) override;
    int EditInkNote(const InkHome& home) override;

    CMessagePump Pump;
    CProgramState State;
    std::vector<OwnerCall> Calls;
    std::function<void()> WhenTold; // called as the owner is told; may be none
    std::function<int()> EditInk;   // none: there is no ink editor
    InkHome LastHome;               // what it was told that the ink belongs to
    bool OpenedFromCalendar = false;
    const FoundDraft* Continued = nullptr; // for the next dialog

  private:
    bool IsAppointment() const;
    int RowOf(int control) const;

    std::int32_t Mode = 0;
};

} // namespace tavo::test
