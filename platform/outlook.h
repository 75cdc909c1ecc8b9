// The device's appointment store, Pocket Outlook, as the program sees it.
#pragma once

#include "platform/com_ptr.h"
#include "platform/handles.h"
#include "platform/status.h"
#include "platform/system_time.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavo {

// A stored item's identity: positive, never reused; 0 is "no item".
using Oid = std::int32_t;

constexpr int kFolderCalendar = 9;
constexpr int kItemAppointment = 1;

constexpr std::int32_t kRecursOnce = -1;
constexpr std::int32_t kRecursDaily = 0;
constexpr std::int32_t kRecursWeekly = 1;
constexpr std::int32_t kRecursMonthly = 2;
constexpr std::int32_t kRecursMonthNth = 3;
constexpr std::int32_t kRecursYearly = 5;
constexpr std::int32_t kRecursYearNth = 6;
constexpr std::int32_t kRecursForeign = 7; // by a rule of another calendar that no type above can say

constexpr std::int32_t kWeekdaysMask = 62; // Monday (2) to Friday (32); Sunday is 1, Saturday 64

constexpr std::int32_t kLastWeek = 5; // the instance that means the last of the month

constexpr std::int32_t kReminderLight = 1;
constexpr std::int32_t kReminderVibrate = 2;
constexpr std::int32_t kReminderDialog = 4;
constexpr std::int32_t kReminderSound = 8;
constexpr std::int32_t kReminderRepeat = 16;
// What a reminder does that a person sets here: it is repeated until somebody answers.
constexpr std::int32_t kRemindSilently = kReminderLight | kReminderDialog | kReminderRepeat;
constexpr std::int32_t kRemindAloud = kRemindSilently | kReminderSound;

constexpr std::int32_t kBusyFree = 0;
constexpr std::int32_t kBusyTentative = 1;
constexpr std::int32_t kBusyBusy = 2;
constexpr std::int32_t kBusyOutOfOffice = 3;

constexpr std::int32_t kSensitivityNormal = 0;
constexpr std::int32_t kSensitivityPrivate = 2;

// How an appointment repeats. Setters take any value; saving the appointment refuses bad ones.
// Changes reach the store with the appointment's Save.
class IRecurrencePattern : public IUnknown {
  public:
    virtual Status get_RecurrenceType(std::int32_t& type) = 0;
    virtual Status put_RecurrenceType(std::int32_t type) = 0;
    virtual Status get_PatternStartDate(DATE& date) = 0;
    virtual Status put_PatternStartDate(DATE date) = 0;
    virtual Status get_PatternEndDate(DATE& date) = 0; // kNoDate while there is no end
    virtual Status put_PatternEndDate(DATE date) = 0;
    virtual Status get_NoEndDate(bool& noEnd) = 0;
    virtual Status put_NoEndDate(bool noEnd) = 0;
    virtual Status get_Occurrences(std::int32_t& count) = 0;
    virtual Status put_Occurrences(std::int32_t count) = 0;
    virtual Status get_Interval(std::int32_t& interval) = 0; // 1..999 days, weeks or months
    virtual Status put_Interval(std::int32_t interval) = 0;
    virtual Status get_DayOfWeekMask(std::int32_t& mask) = 0; // Sunday 1 .. Saturday 64
    virtual Status put_DayOfWeekMask(std::int32_t mask) = 0;
    virtual Status get_DayOfMonth(std::int32_t& day) = 0; // 1..31; beyond the month: its last day
    virtual Status put_DayOfMonth(std::int32_t day) = 0;
    virtual Status get_Instance(std::int32_t& instance) = 0; // 1..5; 5 is the last
    virtual Status put_Instance(std::int32_t instance) = 0;
    virtual Status get_MonthOfYear(std::int32_t& month) = 0; // 1..12
    virtual Status put_MonthOfYear(std::int32_t month) = 0;
    virtual Status get_StartTime(DATE& time) = 0; // only the time of day counts
    virtual Status put_StartTime(DATE time) = 0;
    virtual Status get_EndTime(DATE& time) = 0;
    virtual Status put_EndTime(DATE time) = 0;
    virtual Status get_Duration(std::int32_t& minutes) = 0;
    virtual Status put_Duration(std::int32_t minutes) = 0;
};

// One appointment, a series, or one occurrence of a series. Times are local wall-clock times.
// Setters change only this object; Save writes what was put and refuses bad values as a whole.
class IAppointment : public IUnknown {
  public:
    virtual Status get_Oid(Oid& oid) = 0; // 0 until the first Save
    virtual Status get_Subject(std::u16string& text) = 0;
    virtual Status put_Subject(std::u16string_view text) = 0;
    virtual Status get_Location(std::u16string& text) = 0;
    virtual Status put_Location(std::u16string_view text) = 0;
    virtual Status get_Categories(std::u16string& text) = 0;
    virtual Status put_Categories(std::u16string_view text) = 0;
    virtual Status get_Body(std::u16string& text) = 0;
    virtual Status put_Body(std::u16string_view text) = 0;
    virtual Status get_BodyInk(std::vector<std::uint8_t>& ink) = 0;
    // TooLarge above 4 MiB, and then the note is left as it was.
    virtual Status put_BodyInk(std::span<const std::uint8_t> ink) = 0;
    virtual Status get_Start(DATE& date) = 0;
    virtual Status put_Start(DATE date) = 0; // keeps the duration
    virtual Status get_End(DATE& date) = 0;
    virtual Status put_End(DATE date) = 0; // recomputes the duration
    virtual Status get_Duration(std::int32_t& minutes) = 0;
    virtual Status put_Duration(std::int32_t minutes) = 0; // recomputes the end
    virtual Status get_AllDayEvent(bool& allDay) = 0;
    virtual Status put_AllDayEvent(bool allDay) = 0;
    virtual Status get_BusyStatus(std::int32_t& status) = 0;
    virtual Status put_BusyStatus(std::int32_t status) = 0;
    virtual Status get_Sensitivity(std::int32_t& sensitivity) = 0;
    virtual Status put_Sensitivity(std::int32_t sensitivity) = 0;
    virtual Status get_ReminderSet(bool& set) = 0;
    virtual Status put_ReminderSet(bool set) = 0;
    virtual Status get_ReminderMinutesBeforeStart(std::int32_t& minutes) = 0;
    virtual Status put_ReminderMinutesBeforeStart(std::int32_t minutes) = 0;
    virtual Status get_ReminderOptions(std::int32_t& options) = 0;
    virtual Status put_ReminderOptions(std::int32_t options) = 0;
    virtual Status get_ReminderSoundFile(std::u16string& path) = 0;
    virtual Status put_ReminderSoundFile(std::u16string_view path) = 0;
    virtual Status get_IsRecurring(bool& recurring) = 0;
    // The pattern of this appointment; of one that does not recur, a fresh pattern that makes it recur once
    // a property is put and the appointment saved.
    virtual Status GetRecurrencePattern(ComPtr<IRecurrencePattern>& pattern) = 0;
    virtual Status ClearRecurrencePattern() = 0;
    virtual Status Save() = 0;
    virtual Status Delete() = 0;
};

// A list of appointments in order of start, then OID. Live for deletion: when the item at index i is deleted,
// the next one moves to i.
class IPOutlookItemCollection : public IUnknown {
  public:
    virtual Status get_Count(std::int32_t& count) = 0;
    // One-based; InvalidArgument beyond the last item.
    virtual Status Item(std::int32_t index, ComPtr<IAppointment>& item) = 0;
    // Bracketed properties compared with < <= > >= = <>, joined by AND and OR. With no match: success and a
    // null collection (unless the folder holds series, whose occurrences may match once they are included).
    virtual Status Restrict(std::u16string_view restriction, ComPtr<IPOutlookItemCollection>& items) = 0;
    // False at first: a series counts once, on its first day. True: one item for each occurrence.
    virtual Status put_IncludeRecurrences(bool include) = 0;
};

class IFolder : public IUnknown {
  public:
    virtual Status get_Items(ComPtr<IPOutlookItemCollection>& items) = 0;
};

// The three kinds that the program keeps as lists of OIDs beside the store.
enum class TagList : std::int32_t { Alarm = 0, Holiday = 1, Anniversary = 2 };

// A wish from outside the program that an item join a list (Set) or leave it.
struct TagRequest {
    std::int64_t Id = 0; // rises with each request
    TagList List = TagList::Alarm;
    Oid Item = 0;
    bool Set = true;
    std::int32_t Position = -1; // where to put it back when it was undone; -1 is the end
};

// The store's mirror of the program's category lists: the program reports, other processes and undo read.
// The lists and their data file stay the truth.
class ITagMirror {
  public:
    virtual ~ITagMirror() = default;
    virtual Status ReplaceList(TagList list, std::span<const Oid> oids) = 0;
    virtual Status ReportInserted(TagList list, std::int32_t position, Oid oid) = 0;
    virtual Status ReportRemoved(TagList list, std::int32_t position, Oid oid) = 0;
    // Requests not yet finished, oldest first.
    virtual Status GetRequests(std::vector<TagRequest>& requests) = 0;
    // Call after the data file that holds them was saved: drops the requests up to this id.
    virtual Status FinishRequests(std::int64_t lastId) = 0;
};

// An item whose texts hold what was searched for.
struct FoundItem {
    Oid Item = 0;
    DATE Start = 0; // of its first occurrence
    bool AllDay = false;
    bool IsRecurring = false;
    std::u16string Subject;
    std::u16string Location;
};

// A search that goes on as far as it is asked to. Changes meanwhile are seen or not.
class IItemSearch : public IUnknown {
  public:
    // Looks at that many more items, those made last first, and appends what is found. False when that were the last.
    virtual Status Step(std::int32_t items, std::vector<FoundItem>& found) = 0;
};

// The connection to the store.
class IPOutlookApp : public IUnknown {
  public:
    // Comes first; a null window is allowed. False when already logged on. A failure leaves the store file byte
    // for byte as it was.
    virtual Status Logon(WindowHandle window) = 0;
    virtual Status Logoff() = 0; // comes last; False when already off
    virtual Status GetDefaultFolder(int folder, ComPtr<IFolder>& result) = 0;
    virtual Status GetItemFromOid(Oid oid, ComPtr<IAppointment>& item) = 0; // NotFound when it is gone
    virtual Status CreateItem(int kind, ComPtr<IAppointment>& item) = 0;

    // Everything between Begin and End is one transaction and one step of undo, named for people.
    // Groups do not nest. A single Save or Delete outside a group is a group of one.
    virtual Status Begin(std::u16string_view name) = 0;
    virtual Status End() = 0;
    virtual Status Abandon() = 0; // ends the group and takes back all it did
    // The newest group that can be undone; NotFound when there is none.
    virtual Status GetUndoName(std::u16string& name) = 0;
    // Takes back the newest group that was not undone yet. `restored` gets the OIDs it touched.
    virtual Status Undo(std::vector<Oid>& restored) = 0;
    // The same in steps, for a large group: begins, and says how many steps there are. No other change is taken until
    // End makes it final, which only succeeds after the last step, or Abandon leaves everything as it was.
    virtual Status BeginUndo(std::int32_t& steps) = 0;
    virtual Status StepUndo() = 0; // False when there is nothing left to take back

    // Within a group: something that the program itself will take back when the group is undone, in its own bytes.
    virtual Status AddNote(std::span<const std::uint8_t> note) = 0;
    // The notes of the group that GetUndoName names, oldest first. They are no steps of BeginUndo.
    virtual Status GetUndoNotes(std::vector<std::vector<std::uint8_t>>& notes) = 0;

    // All that is read until EndReading is of one moment, and many items cost less. They nest; whatever begins a change
    // ends them all.
    virtual Status BeginReading() = 0;
    virtual Status EndReading() = 0;

    // The items in which each word of the text stands somewhere in the subject, the location or the notes, whatever its
    // case. Nothing is found by a text without words.
    virtual Status Search(std::u16string_view text, ComPtr<IItemSearch>& search) = 0;

    virtual ITagMirror& Tags() = 0; // valid while this object lives
};

} // namespace tavo
