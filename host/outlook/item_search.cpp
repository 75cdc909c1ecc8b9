// Walks the table of items in parts, so that whoever searches can show what there is and go on.
#include "host/outlook/item_search.h"

#include "host/locale/case_folding.h"
#include "host/outlook/item_rows.h"
#include "host/outlook/text.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tavo::outlook {

namespace {

bool IsBlank(char16_t unit) {
    constexpr char16_t noBreakSpace = 0xA0;
    return unit <= u' ' || unit == noBreakSpace;
}

// Nearly all texts are plain ones, and these loops are made for a processor to take many units at once.
void AppendFolded(std::string_view text, std::string& folded) {
    constexpr unsigned firstBeyondAscii = 0x80;
    unsigned all = 0;
    for (const char unit : text) {
        all |= static_cast<unsigned char>(unit);
    }
    if (all >= firstBeyondAscii) {
        folded += ToUtf8(locale::FoldCase(ToUtf16(text)));
        return;
    }
    const std::size_t begin = folded.size();
    folded.append(text);
    std::transform(text.begin(), text.end(), folded.begin() + static_cast<std::ptrdiff_t>(begin), [](char unit) {
        const bool isCapital = static_cast<unsigned char>(unit - 'A') <= 'Z' - 'A';
        return static_cast<char>(unit | (isCapital ? 'a' - 'A' : 0));
    });
}

std::vector<std::string> SplitFolded(std::u16string_view text) {
    std::vector<std::string> words;
    for (std::size_t end = 0; end < text.size();) {
        const std::size_t begin = end;
        while (end < text.size() && !IsBlank(text[end])) {
            ++end;
        }
        if (end > begin) {
            words.push_back(ToUtf8(locale::FoldCase(text.substr(begin, end - begin))));
        } else {
            ++end;
        }
    }
    return words;
}

} // namespace

ItemSearch::ItemSearch(ComPtr<Session> session, std::u16string_view text)
    : Owner(std::move(session)), Words(SplitFolded(text)), Before(Words.empty() ? 0 : std::numeric_limits<Oid>::max()) {
}

bool ItemSearch::Holds(std::string_view subject, std::string_view location, std::string_view body) {
    Folded.clear();
    for (const std::string_view text : {subject, location, body}) {
        AppendFolded(text, Folded);
        Folded += '\n'; // no word goes on in the next text
    }
    return std::all_of(Words.begin(), Words.end(),
                       [this](const std::string& word) { return Folded.find(word) != std::string::npos; });
}

Status ItemSearch::Step(std::int32_t items, std::vector<FoundItem>& found) {
    Query query(Owner->Core.Db, "SELECT oid, start, flags, subject, location, body FROM item WHERE oid < ?"
                                " ORDER BY oid DESC LIMIT ?");
    query.Bind(Before).Bind(items);
    std::int32_t seen = 0;
    while (query.Next()) {
        ++seen;
        Before = query.Small(0);
        if (Holds(query.Text(3), query.Text(4), query.Text(5))) {
            FoundItem item;
            item.Item = Before;
            item.Start = rules::DateFromSeconds(query.Integer(1));
            item.AllDay = (query.Integer(2) & kFlagAllDay) != 0;
            item.IsRecurring = (query.Integer(2) & kFlagRecurring) != 0;
            item.Subject = ToUtf16(query.Text(3));
            item.Location = ToUtf16(query.Text(4));
            found.push_back(std::move(item));
        }
    }
    if (Failed(query.Result())) {
        return query.Result();
    }
    return seen == items ? Status::Ok : Status::False;
}

} // namespace tavo::outlook
