// tavo show: all that is stored of an item.
#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/item_change.h"
#include "tools/item_text.h"
#include "tools/output.h"
#include "tools/records.h"
#include "tools/repeat_text.h"
#include "tools/store_days.h"

namespace tavo::tools {
namespace {

using rules::StoredException;
using rules::StoredItem;

std::string Write(const std::u16string& text) {
    return locale::MakeHarmless(locale::ToUtf8(text));
}

void AddLine(std::string_view name, const std::string& value, std::string& text) {
    constexpr std::size_t column = 12;
    if (!value.empty()) {
        std::string line = "  " + std::string(name);
        line.resize(std::max(column, line.size() + 1), ' ');
        text += line + value + "\n";
    }
}

// Line by line, each below the first.
void AddNote(const std::u16string& body, std::string& text) {
    std::string_view name = "Note";
    for (std::size_t start = 0; start < body.size();) {
        const std::size_t end = std::min(body.find(u'\n', start), body.size());
        std::u16string line = body.substr(start, end - start);
        if (!line.empty() && line.back() == u'\r') {
            line.pop_back();
        }
        AddLine(name, line.empty() ? " " : Write(line), text);
        name = "";
        start = end + 1;
    }
}

void AddExceptions(const StoredItem& item, std::string& text) {
    std::string_view name = "Except";
    for (const StoredException& exception : item.Exceptions) {
        const rules::DayNumber day = rules::DayOf(exception.Original);
        std::string line = WriteDayWithWeekday(DayFromNumber(day));
        if (exception.Kind == rules::ExceptionKind::Cancelled) {
            line += " does not take place";
        } else {
            StoredItem moved;
            moved.Start = exception.Start;
            moved.End = exception.End;
            moved.AllDay = item.AllDay;
            line += " is " + DescribeSpan(moved);
            line += exception.Subject ? ", " + Write(*exception.Subject) : "";
        }
        AddLine(name, line, text);
        name = "";
    }
}

void Describe(const StoredItem& item, ExportKind kind, std::string& text) {
    const std::string reminder = DescribeReminder(item);
    const std::string sound = DescribeSound(item);
    text += "Item " + std::to_string(item.Item) + ": " + DescribeSubject(item) + "\n";
    AddLine("Kind", std::string(NameKind(kind)), text);
    AddLine("When", DescribeSpan(item), text);
    AddLine("Zone", locale::MakeHarmless(item.Zone), text);
    AddLine("Repeats", DescribeRepetition(item), text);
    AddExceptions(item, text);
    AddLine("Reminds",
            reminder.empty() ? "" : reminder.substr(reminder.find(' ') + 1) + (sound.empty() ? "" : ", " + sound),
            text);
    AddLine("Place", Write(item.Location), text);
    AddNote(item.Body, text);
    AddLine("Ink", item.Ink.empty() ? "" : "a handwritten note", text);
    AddLine("UID", locale::MakeHarmless(item.Uid), text);
}

void Record(const StoredItem& item, ExportKind kind, Records& records) {
    records.Begin();
    records.Add("item", std::int64_t{item.Item});
    records.Add("kind", NameKind(kind));
    records.Add("start", WriteIsoTime(item.Start));
    records.Add("end", WriteIsoTime(item.End));
    records.Add("allDay", item.AllDay);
    records.Add("zone", item.Zone);
    records.Add("repeats", DescribeRepetition(item));
    records.Add("reminder", item.ReminderSet);
    records.Add("reminderMinutes", std::int64_t{item.ReminderMinutes});
    records.Add("sound", item.ReminderSet ? locale::ToUtf8(item.ReminderSound) : std::string());
    records.Add("subject", locale::ToUtf8(item.Subject));
    records.Add("location", locale::ToUtf8(item.Location));
    records.Add("note", locale::ToUtf8(item.Body));
    records.Add("ink", !item.Ink.empty());
    records.Add("uid", item.Uid);
    records.End();
}

} // namespace

int RunShow(const NumbersOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    const std::optional<outlook::StorePtr> store = root ? OpenStoreToRead(*root) : std::nullopt;
    if (!store) {
        return kExitFailure;
    }
    std::string text;
    Records records(options.Format, text);
    bool allThere = true;
    for (const Oid oid : options.Items) {
        StoredItem item;
        ExportKind kind = ExportKind::Appointment;
        Status status = *store ? (*store)->ReadItem(oid, item) : Status::NotFound;
        status = Succeeded(status) ? ReadKind(*store, oid, kind) : status;
        if (Failed(status)) {
            const std::string number = std::to_string(oid);
            Complain(status == Status::NotFound
                         ? "There is no item " + number + "."
                         : "Item " + number + " cannot be read: " + DescribeFailure(status) + ".");
            allThere = false;
        } else if (options.Format == ListFormat::People) {
            Describe(item, kind, text);
        } else {
            Record(item, kind, records);
        }
    }
    records.Finish();
    const int said = Print(text);
    return allThere ? said : kExitFailure;
}

} // namespace tavo::tools
