// One appointment as the program holds it: an item of its own, a series, or a light occurrence that reads the rest of
// its series only when asked.
#pragma once

#include "host/outlook/session.h"
#include "host/outlook/terms.h"
#include "host/rules/item_draft.h"
#include "host/rules/series.h"

#include <memory>

namespace tavo::outlook {

class Appointment final : public RefCounted<IAppointment> {
  public:
    // Of a listing; nothing is read yet.
    Appointment(Session& session, const Entry& entry);
    // Not stored yet.
    explicit Appointment(Session& session);
    // Just read.
    Appointment(Session& session, StoredItem item);

    // For an object of a listing that nobody else holds: from now on the appointment of another line of it.
    void Become(const Entry& entry);

    Status get_Oid(Oid& oid) override;
    Status get_Subject(std::u16string& text) override;
    Status put_Subject(std::u16string_view text) override;
    Status get_Location(std::u16string& text) override;
    Status put_Location(std::u16string_view text) override;
    Status get_Categories(std::u16string& text) override;
    Status put_Categories(std::u16string_view text) override;
    Status get_Body(std::u16string& text) override;
    Status put_Body(std::u16string_view text) override;
    Status get_BodyInk(std::vector<std::uint8_t>& ink) override;
    Status put_BodyInk(std::span<const std::uint8_t> ink) override;
    Status get_Start(DATE& date) override;
    Status put_Start(DATE date) override;
    Status get_End(DATE& date) override;
    Status put_End(DATE date) override;
    Status get_Duration(std::int32_t& minutes) override;
    Status put_Duration(std::int32_t minutes) override;
    Status get_AllDayEvent(bool& allDay) override;
    Status put_AllDayEvent(bool allDay) override;
    Status get_BusyStatus(std::int32_t& status) override;
    Status put_BusyStatus(std::int32_t status) override;
    Status get_Sensitivity(std::int32_t& sensitivity) override;
    Status put_Sensitivity(std::int32_t sensitivity) override;
    Status get_ReminderSet(bool& set) override;
    Status put_ReminderSet(bool set) override;
    Status get_ReminderMinutesBeforeStart(std::int32_t& minutes) override;
    Status put_ReminderMinutesBeforeStart(std::int32_t minutes) override;
    Status get_ReminderOptions(std::int32_t& options) override;
    Status put_ReminderOptions(std::int32_t options) override;
    Status get_ReminderSoundFile(std::u16string& path) override;
    Status put_ReminderSoundFile(std::u16string_view path) override;
    Status get_IsRecurring(bool& recurring) override;
    Status GetRecurrencePattern(ComPtr<IRecurrencePattern>& pattern) override;
    Status ClearRecurrencePattern() override;
    Status Save() override;
    Status Delete() override;

    // The properties as they stand, read first where that was not done yet; NotFound when the item is gone.
    Status Load(ItemDraft*& draft);

  private:
    ~Appointment() override = default;

    bool IsOccurrence() const { return Line.Kind == EntryKind::Occurrence || Line.Kind == EntryKind::Moved; }

    template <class Value> Status Get(Value StoredItem::*field, Value& value);
    template <class Value, class Given> Status PutField(Value StoredItem::*field, PutSet flag, const Given& value);
    void ShowOccurrence(StoredItem& item) const;
    Status SaveNew(ItemDraft& draft);
    Status SaveChanges(ItemDraft& draft);
    Status SaveOccurrence(ItemDraft& draft);
    Status CancelOccurrence();
    Status WriteException(const std::function<void(StoredException&, const StoredItem&)>& set);

    ComPtr<Session> Owner;
    Entry Line;
    std::unique_ptr<ItemDraft> Draft; // null until something but start, end and OID is asked for
};

} // namespace tavo::outlook
