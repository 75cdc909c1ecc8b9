// tavo find: items by words in their texts, in order of their starts.
#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"
#include "tools/commands.h"
#include "tools/device.h"
#include "tools/item_change.h"
#include "tools/item_text.h"
#include "tools/output.h"
#include "tools/records.h"
#include "tools/store_days.h"

#include <algorithm>

namespace tavo::tools {
namespace {

constexpr int kItemsAtOnce = 10'000;

Status Find(const outlook::StorePtr& store, const std::string& text, std::vector<FoundItem>& found) {
    ComPtr<IItemSearch> search;
    Status status = outlook::MakeOutlookApp(store)->Search(locale::ToUtf16(text), search);
    while (status == Status::Ok) {
        status = search->Step(kItemsAtOnce, found);
    }
    std::sort(found.begin(), found.end(), [](const FoundItem& left, const FoundItem& right) {
        return std::pair(left.Start, left.Item) < std::pair(right.Start, right.Item);
    });
    return status;
}

std::string Write(const std::u16string& text) {
    return locale::MakeHarmless(locale::ToUtf8(text));
}

// "    12  Wed 2 December 2026 15:00  Dentist (Main street 1)  [Alarm]"
void Describe(const FoundItem& item, ExportKind kind, std::string& text) {
    constexpr std::size_t numberColumn = 6;
    constexpr std::size_t timeColumn = 30;
    const std::string number = std::to_string(item.Item);
    text.append(numberColumn - std::min(numberColumn, number.size()), ' ');
    const rules::Seconds start = rules::SecondsFromDate(item.Start);
    std::string when = WriteDayWithWeekday(DayFromNumber(rules::DayOf(start)));
    when += item.AllDay ? "" : " " + WriteClock(MinuteOf(start));
    when += item.IsRecurring ? " ..." : "";
    when.resize(std::max(timeColumn, when.size()), ' ');
    text += number + "  " + when + "  ";
    text += item.Subject.empty() ? "(no subject)" : Write(item.Subject);
    text += item.Location.empty() ? "" : " (" + Write(item.Location) + ")";
    text += kind == ExportKind::Appointment ? "\n" : "  [" + std::string(NameKind(kind)) + "]\n";
}

void Record(const FoundItem& item, ExportKind kind, Records& records) {
    records.Begin();
    records.Add("item", std::int64_t{item.Item});
    records.Add("start", WriteIsoTime(rules::SecondsFromDate(item.Start)));
    records.Add("allDay", item.AllDay);
    records.Add("recurring", item.IsRecurring);
    records.Add("kind", NameKind(kind));
    records.Add("subject", locale::ToUtf8(item.Subject));
    records.Add("location", locale::ToUtf8(item.Location));
    records.End();
}

} // namespace

int RunFind(const FindOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    const std::optional<outlook::StorePtr> store = root ? OpenStoreToRead(*root) : std::nullopt;
    if (!store) {
        return kExitFailure;
    }
    std::vector<FoundItem> found;
    std::string text;
    Records records(options.Format, text);
    Status status = *store ? Find(*store, options.Text, found) : Status::Ok;
    for (const FoundItem& item : found) {
        ExportKind kind = ExportKind::Appointment;
        status = Succeeded(status) ? ReadKind(*store, item.Item, kind) : status;
        if (options.Format == ListFormat::People) {
            Describe(item, kind, text);
        } else {
            Record(item, kind, records);
        }
    }
    if (Failed(status)) {
        Complain("The calendar cannot be read: " + DescribeFailure(status) + ".");
        return kExitFailure;
    }
    records.Finish();
    if (found.empty() && options.Format == ListFormat::People) {
        Complain("Nothing was found with \"" + options.Text + "\".");
    }
    const int said = Print(text);
    return found.empty() ? kExitFailure : said;
}

} // namespace tavo::tools
