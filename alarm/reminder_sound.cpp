// Finding the next appointment that reminds, and writing its sound.
#include "alarm/reminder_sound.h"

#include "framework/format.h"
#include "store/date_pictures.h"

#include <optional>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kRemindersKey = u"\\ControlPanel\\Notifications\\Reminders";
constexpr std::u16string_view kSoundValue = u"Wave";
// The line feed belongs to the restriction.
constexpr std::u16string_view kRestriction = u"[Start] >= %s and [Start] <= %s\n";
constexpr int kDateBuffer = 100; // UTF-16 units, with the terminating zero

std::optional<std::u16string> MakeRestriction(ILocale& locale, const SYSTEMTIME& today, DATE now) {
    SYSTEMTIME tomorrow;
    if (!locale.VariantTimeToSystemTime(now + 1, tomorrow)) {
        return std::nullopt;
    }
    const auto first = locale.GetDateFormatW(LocaleId::System, today, kPictureShortDate, kDateBuffer);
    const auto last = locale.GetDateFormatW(LocaleId::System, tomorrow, kPictureShortDate, kDateBuffer);
    if (!first || !last) {
        return std::nullopt;
    }
    return FormatText(kRestriction, *first, *last);
}

// An appointment that cannot be read does not remind.
bool WillRemind(IAppointment& item, DATE now) {
    DATE start = 0;
    bool reminds = false;
    return Succeeded(item.get_Start(start)) && Succeeded(item.get_ReminderSet(reminds)) && start > now && reminds;
}

// As bytes, the low one of each unit first; the terminating zero is left out on purpose.
std::vector<std::uint8_t> BytesOf(std::u16string_view text) {
    std::vector<std::uint8_t> bytes;
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFF));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8));
    }
    return bytes;
}

void WriteSound(IRegistry& registry, std::u16string_view path) {
    KeyHandle key = KeyHandle::None;
    if (registry.RegCreateKeyExW(kRemindersKey, key) != ErrorCode::Success) {
        return;
    }
    // A value that cannot be written stays as it was; the next update tries again.
    static_cast<void>(registry.RegSetValueExW(key, kSoundValue, REG_SZ, BytesOf(path)));
    registry.RegCloseKey(key);
}

} // namespace

void UpdateReminderSound(CProgramState& state) {
    ILocale& locale = state.Host().Locale();
    const SYSTEMTIME today = state.Host().Clock().GetLocalTime();
    DATE now = 0;
    if (!locale.SystemTimeToVariantTime(today, now)) {
        return;
    }
    const std::optional<std::u16string> restriction = MakeRestriction(locale, today, now);
    if (!restriction) {
        return;
    }
    const ComPtr<IPOutlookItemCollection> items = state.Store.QueryAppointments(*restriction);
    if (!items) {
        return;
    }
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; Succeeded(items->Item(index, item)) && item; ++index) {
        if (!WillRemind(*item, now)) {
            continue;
        }
        std::u16string sound;
        if (Succeeded(item->get_ReminderSoundFile(sound))) {
            WriteSound(state.Host().Registry(), sound);
        }
        return;
    }
}

} // namespace tavo
