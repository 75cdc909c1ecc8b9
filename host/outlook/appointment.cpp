// Reading and putting an appointment's properties.
#include "host/outlook/appointment.h"

#include "host/outlook/recurrence_pattern.h"
#include "host/rules/save_rules.h"

#include <cmath>

namespace tavo::outlook {

namespace {

ComPtr<Session> Share(Session& session) {
    session.AddRef();
    return ComPtr<Session>::Adopt(&session);
}

} // namespace

Appointment::Appointment(Session& session, const Entry& entry) : Owner(Share(session)), Line(entry) {}

Appointment::Appointment(Session& session) : Owner(Share(session)), Draft(std::make_unique<ItemDraft>()) {}

Appointment::Appointment(Session& session, StoredItem item)
    : Owner(Share(session)), Draft(std::make_unique<ItemDraft>(std::move(item))) {
    Line.Item = Draft->Item.Item;
    Line.Kind = Draft->Item.IsRecurring() ? EntryKind::Series : EntryKind::Plain;
}

void Appointment::Become(const Entry& entry) {
    Line = entry;
    Draft.reset();
}

Status Appointment::Load(ItemDraft*& draft) {
    if (Draft == nullptr) {
        StoredItem item;
        if (const Status status = Owner->Core.Items.Read(Line.Item, Ink::Leave, item); Failed(status)) {
            return status;
        }
        if (IsOccurrence()) {
            ShowOccurrence(item);
        }
        Draft = std::make_unique<ItemDraft>(std::move(item));
    }
    draft = Draft.get();
    return Status::Ok;
}

// The item is the series; what this occurrence has of its own comes over it.
void Appointment::ShowOccurrence(StoredItem& item) const {
    item.Start = Line.Start;
    item.End = Line.End();
    for (const StoredException& exception : item.Exceptions) {
        if (Line.Kind == EntryKind::Moved && exception.Original == Line.Original) {
            item.Subject = exception.Subject.value_or(item.Subject);
            item.Location = exception.Location.value_or(item.Location);
        }
    }
}

template <class Value> Status Appointment::Get(Value StoredItem::*field, Value& value) {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        value = draft->Item.*field;
    }
    return status;
}

template <class Value, class Given>
Status Appointment::PutField(Value StoredItem::*field, PutSet flag, const Given& value) {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        draft->Item.*field = value;
        draft->Put |= flag;
    }
    return status;
}

Status Appointment::get_Oid(Oid& oid) {
    oid = Line.Item;
    return Status::Ok;
}

Status Appointment::get_Subject(std::u16string& text) {
    return Get(&StoredItem::Subject, text);
}

Status Appointment::put_Subject(std::u16string_view text) {
    return PutField(&StoredItem::Subject, kPutSubject, text);
}

Status Appointment::get_Location(std::u16string& text) {
    return Get(&StoredItem::Location, text);
}

Status Appointment::put_Location(std::u16string_view text) {
    return PutField(&StoredItem::Location, kPutLocation, text);
}

Status Appointment::get_Categories(std::u16string& text) {
    return Get(&StoredItem::Categories, text);
}

Status Appointment::put_Categories(std::u16string_view text) {
    return PutField(&StoredItem::Categories, kPutCategories, text);
}

Status Appointment::get_Body(std::u16string& text) {
    return Get(&StoredItem::Body, text);
}

Status Appointment::put_Body(std::u16string_view text) {
    return PutField(&StoredItem::Body, kPutBody, text);
}

Status Appointment::get_BodyInk(std::vector<std::uint8_t>& ink) {
    ItemDraft* draft = nullptr;
    if (const Status status = Load(draft); Failed(status)) {
        return status;
    }
    if ((draft->Put & kPutInk) != 0 || Line.Item == 0) {
        ink = draft->Item.Ink;
        return Status::Ok;
    }
    return Owner->Core.Items.ReadInk(Line.Item, ink);
}

Status Appointment::put_BodyInk(std::span<const std::uint8_t> ink) {
    if (ink.size() > kMaxInkBytes) {
        return Status::TooLarge;
    }
    return PutField(&StoredItem::Ink, kPutInk, std::vector<std::uint8_t>(ink.begin(), ink.end()));
}

Status Appointment::get_Start(DATE& date) {
    if (Draft == nullptr) {
        date = DateFromSeconds(Line.Start);
        return Status::Ok;
    }
    date = DateFromSeconds(Draft->Item.Start);
    return Status::Ok;
}

Status Appointment::put_Start(DATE date) {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        draft->PutStart(SecondsFromDate(date));
    }
    return status;
}

Status Appointment::get_End(DATE& date) {
    date = DateFromSeconds(Draft == nullptr ? Line.End() : Draft->Item.End);
    return Status::Ok;
}

Status Appointment::put_End(DATE date) {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        draft->PutEnd(SecondsFromDate(date));
    }
    return status;
}

Status Appointment::get_Duration(std::int32_t& minutes) {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        minutes = draft->DurationMinutes();
    }
    return status;
}

Status Appointment::put_Duration(std::int32_t minutes) {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        draft->PutDuration(minutes);
    }
    return status;
}

Status Appointment::get_AllDayEvent(bool& allDay) {
    return Get(&StoredItem::AllDay, allDay);
}

Status Appointment::put_AllDayEvent(bool allDay) {
    return PutField(&StoredItem::AllDay, kPutAllDay, allDay);
}

Status Appointment::get_BusyStatus(std::int32_t& status) {
    return Get(&StoredItem::BusyStatus, status);
}

Status Appointment::put_BusyStatus(std::int32_t status) {
    return PutField(&StoredItem::BusyStatus, kPutBusy, status);
}

Status Appointment::get_Sensitivity(std::int32_t& sensitivity) {
    return Get(&StoredItem::Sensitivity, sensitivity);
}

Status Appointment::put_Sensitivity(std::int32_t sensitivity) {
    return PutField(&StoredItem::Sensitivity, kPutSensitivity, sensitivity);
}

Status Appointment::get_ReminderSet(bool& set) {
    return Get(&StoredItem::ReminderSet, set);
}

Status Appointment::put_ReminderSet(bool set) {
    return PutField(&StoredItem::ReminderSet, kPutReminderSet, set);
}

Status Appointment::get_ReminderMinutesBeforeStart(std::int32_t& minutes) {
    return Get(&StoredItem::ReminderMinutes, minutes);
}

Status Appointment::put_ReminderMinutesBeforeStart(std::int32_t minutes) {
    return PutField(&StoredItem::ReminderMinutes, kPutReminderMinutes, minutes);
}

Status Appointment::get_ReminderOptions(std::int32_t& options) {
    return Get(&StoredItem::ReminderOptions, options);
}

Status Appointment::put_ReminderOptions(std::int32_t options) {
    return PutField(&StoredItem::ReminderOptions, kPutReminderOptions, options);
}

Status Appointment::get_ReminderSoundFile(std::u16string& path) {
    return Get(&StoredItem::ReminderSound, path);
}

Status Appointment::put_ReminderSoundFile(std::u16string_view path) {
    return PutField(&StoredItem::ReminderSound, kPutReminderSound, path);
}

Status Appointment::get_IsRecurring(bool& recurring) {
    if (Draft == nullptr) {
        recurring = Line.Kind != EntryKind::Plain;
        return Status::Ok;
    }
    recurring = Draft->Item.IsRecurring();
    return Status::Ok;
}

Status Appointment::GetRecurrencePattern(ComPtr<IRecurrencePattern>& pattern) {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        pattern = As<IRecurrencePattern>(Make<RecurrencePattern>(*this));
    }
    return status;
}

Status Appointment::ClearRecurrencePattern() {
    ItemDraft* draft = nullptr;
    const Status status = Load(draft);
    if (Succeeded(status)) {
        draft->ClearRecurrence();
    }
    return status;
}

} // namespace tavo::outlook
