// tavo find: items by words in their texts, in order of their starts.
#include "host/locale/harmless_text.h"
#include "host/locale/utf.h"
#include "host/outlook/item_search.h"
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

Status Find(const outlook::StorePtr& store, const std::string& text, std::vector<outlook::FoundItem>& found) {
    outlook::ItemSearch search(store, locale::ToUtf16(text));
    while (search.Step(kItemsAtOnce, found)) {
    }
    std::sort(found.begin(), found.end(), [](const outlook::FoundItem& left, const outlook::FoundItem& right) {
        return std::pair(left.Start, left.Item) < std::pair(right.Start, right.Item);
    });
    return search.Result();
}

// "    12  Wed 2 December 2026 15:00  Dentist (Main street 1)  [Alarm]"
void Describe(const outlook::FoundItem& item, ExportKind kind, std::string& text) {
    constexpr std::size_t numberColumn = 6;
    constexpr std::size_t timeColumn = 30;
    const std::string number = std::to_string(item.Item);
    text.append(numberColumn - std::min(numberColumn, number.size()), ' ');
    std::string when = WriteDayWithWeekday(DayFromNumber(rules::DayOf(item.Start)));
    when += item.IsAllDay ? "" : " " + WriteClock(MinuteOf(item.Start));
    when += item.IsRecurring ? " ..." : "";
    when.resize(std::max(timeColumn, when.size()), ' ');
    text += number + "  " + when + "  ";
    text += item.Subject.empty() ? "(no subject)" : locale::MakeHarmless(item.Subject);
    text += item.Location.empty() ? "" : " (" + locale::MakeHarmless(item.Location) + ")";
    text += kind == ExportKind::Appointment ? "\n" : "  [" + std::string(NameKind(kind)) + "]\n";
}

void Record(const outlook::FoundItem& item, ExportKind kind, Records& records) {
    records.Begin();
    records.Add("item", std::int64_t{item.Item});
    records.Add("start", WriteIsoTime(item.Start));
    records.Add("allDay", item.IsAllDay);
    records.Add("recurring", item.IsRecurring);
    records.Add("kind", NameKind(kind));
    records.Add("subject", item.Subject);
    records.Add("location", item.Location);
    records.End();
}

} // namespace

int RunFind(const FindOptions& options) {
    const std::optional<files::DeviceRoot> root = FindRoot();
    const std::optional<outlook::StorePtr> store = root ? OpenStoreToRead(*root) : std::nullopt;
    if (!store) {
        return kExitFailure;
    }
    std::vector<outlook::FoundItem> found;
    std::string text;
    Records records(options.Format, text);
    Status status = *store ? Find(*store, options.Text, found) : Status::Ok;
    for (const outlook::FoundItem& item : found) {
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
