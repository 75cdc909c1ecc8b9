// The name of the step, and its parts in order.
#include "store/item_deletion.h"

#include "framework/format.h"
#include "store/change_group.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

namespace tavo {

namespace {

constexpr std::size_t kLongestName = 30;   // characters of the subject, as a menu can show them
constexpr char16_t kLastControl = u'\x1F'; // line breaks, tabs and the like
constexpr std::u16string_view kKindWords[]{u"alarm", u"holiday", u"anniversary", u"appointment"};
constexpr std::u16string_view kKindWordsOfMany[]{u"alarms", u"holidays", u"anniversaries", u"appointments"};

// Of the two units that make one character beyond the first 65,536.
bool IsFirstOfPair(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

std::u16string ShortenSubject(std::u16string_view subject) {
    const bool isLong = subject.size() > kLongestName;
    std::u16string text(subject.substr(0, kLongestName));
    if (isLong && IsFirstOfPair(text.back())) {
        text.pop_back();
    }
    std::replace_if(
        text.begin(), text.end(), [](char16_t character) { return character <= kLastControl; }, u' ');
    return isLong ? text += u"..." : text;
}

} // namespace

std::u16string NameDeletion(ItemKind kind, const AppointmentData& record) {
    const std::u16string_view word = record.IsRecurring ? u"series" : kKindWords[IndexOf(kind)];
    return FormatText(u"delete of %s %s", word, ShortenSubject(record.Subject));
}

std::u16string NameCopy(ItemKind target, const AppointmentData& record) {
    return FormatText(u"copy of %s to %s", ShortenSubject(record.Subject), kKindWordsOfMany[IndexOf(target)]);
}

bool DeleteItem(CProgramState& state, ItemKind kind, const AppointmentData& record) {
    CategoryList* list =
        kind == ItemKind::Appointment ? nullptr : &state.Categories.ListOf(static_cast<TagList>(IndexOf(kind)));
    std::vector<Oid> before;
    if (list != nullptr) {
        before.assign(list->All().begin(), list->All().end());
    }
    {
        ChangeGroup group(state.Store, NameDeletion(kind, record));
        if (!group.IsOpen()) {
            return false;
        }
        const bool untagged = list != nullptr && list->RemoveFirst(record.Oid);
        state.Store.DeleteAppointment(record.Oid);
        const bool gone = Succeeded(state.Store.LastStoreResult) || state.Store.LastStoreResult == Status::NotFound;
        if (gone && group.End()) {
            return true;
        }
        if (!untagged) {
            return false;
        }
    }
    list->Replace(std::move(before));
    return false;
}

bool DeleteOccurrence(CProgramState& state, IAppointment& occurrence, const AppointmentData& series) {
    ChangeGroup group(state.Store, FormatText(u"delete of one day of %s", ShortenSubject(series.Subject)));
    return group.IsOpen() && Succeeded(occurrence.Delete()) && group.End();
}

} // namespace tavo
