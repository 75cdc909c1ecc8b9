// A memo belongs to the day that its name begins with.
#include "host/print/printed_memos.h"

#include "host/ink/codec.h"
#include "host/print/page_words.h"

#include "host/locale/utf.h"

#include <utility>

namespace tavo::print {

MemosOfDay ReadMemos(exchange::IMemoFolder& folder, DayNumber day, std::vector<std::string>& unreadable) {
    const std::string begin = locale::ToUtf8(WriteDate(day, u"yyyyMMdd"));
    MemosOfDay memos;
    for (const std::string& name : folder.List()) {
        if (!name.starts_with(begin)) {
            continue;
        }
        std::vector<std::uint8_t> bytes;
        std::vector<ink::PlacedStroke> strokes;
        if (folder.Read(name, bytes) == ErrorCode::Success && ink::Decode(bytes, strokes) == ink::Reading::Whole) {
            memos.push_back(std::move(strokes));
        } else {
            unreadable.push_back(name);
        }
    }
    return memos;
}

} // namespace tavo::print
