// An appointment that passes everything on to another one, notes what it is told, and can withhold some of it.
#pragma once

#include "tests/support/put_notes.h"

namespace tavo::test {

// Lives on the stack of a test.
class AppointmentProbe final : public IAppointment {
  public:
    explicit AppointmentProbe(IAppointment& real) : Real(real) {}

    void AddRef() override { ++References; }

    void Release() override { --References; }

    Status get_Oid(Oid& oid) override { return Failed(OidResult) ? OidResult : Real.get_Oid(oid); }

    Status get_Subject(std::u16string& text) override { return Real.get_Subject(text); }

    Status put_Subject(std::u16string_view text) override {
        Told("Subject", text);
        return Real.put_Subject(text);
    }

    Status get_Location(std::u16string& text) override {
        return Failed(LocationResult) ? LocationResult : Real.get_Location(text);
    }

    Status put_Location(std::u16string_view text) override {
        Told("Location", text);
        return Real.put_Location(text);
    }

    Status get_Categories(std::u16string& text) override { return Real.get_Categories(text); }

    Status put_Categories(std::u16string_view text) override {
        Told("Categories", text);
        return Real.put_Categories(text);
    }

    Status get_Body(std::u16string& text) override { return Real.get_Body(text); }

    Status put_Body(std::u16string_view text) override { return Real.put_Body(text); }

    Status get_BodyInk(std::vector<std::uint8_t>& ink) override {
        return Failed(InkResult) ? InkResult : Real.get_BodyInk(ink);
    }

    Status put_BodyInk(std::span<const std::uint8_t> ink) override { return Real.put_BodyInk(ink); }

    Status get_Start(DATE& date) override { return Failed(StartResult) ? StartResult : Real.get_Start(date); }

    Status put_Start(DATE date) override {
        Told("Start", date);
        return Real.put_Start(date);
    }

    Status get_End(DATE& date) override { return Failed(EndResult) ? EndResult : Real.get_End(date); }

    Status put_End(DATE date) override {
        Told("End", date);
        return Real.put_End(date);
    }

    Status get_Duration(std::int32_t& minutes) override { return Real.get_Duration(minutes); }

    Status put_Duration(std::int32_t minutes) override {
        Told("Duration", minutes);
        return Real.put_Duration(minutes);
    }

    Status get_AllDayEvent(bool& allDay) override { return Real.get_AllDayEvent(allDay); }

    Status put_AllDayEvent(bool allDay) override {
        Told("AllDayEvent", allDay);
        return Real.put_AllDayEvent(allDay);
    }

    Status get_BusyStatus(std::int32_t& status) override { return Real.get_BusyStatus(status); }

    Status put_BusyStatus(std::int32_t status) override {
        Told("BusyStatus", status);
        return Real.put_BusyStatus(status);
    }

    Status get_Sensitivity(std::int32_t& sensitivity) override { return Real.get_Sensitivity(sensitivity); }

    Status put_Sensitivity(std::int32_t sensitivity) override {
        Told("Sensitivity", sensitivity);
        return Real.put_Sensitivity(sensitivity);
    }

    Status get_ReminderSet(bool& set) override { return Real.get_ReminderSet(set); }

    Status put_ReminderSet(bool set) override {
        Told("ReminderSet", set);
        return Real.put_ReminderSet(set);
    }

    Status get_ReminderMinutesBeforeStart(std::int32_t& minutes) override {
        return Real.get_ReminderMinutesBeforeStart(minutes);
    }

    Status put_ReminderMinutesBeforeStart(std::int32_t minutes) override {
        Told("ReminderMinutesBeforeStart", minutes);
        return Real.put_ReminderMinutesBeforeStart(minutes);
    }

    Status get_ReminderOptions(std::int32_t& options) override { return Real.get_ReminderOptions(options); }

    Status put_ReminderOptions(std::int32_t options) override {
        Told("ReminderOptions", options);
        return Real.put_ReminderOptions(options);
    }

    Status get_ReminderSoundFile(std::u16string& path) override { return Real.get_ReminderSoundFile(path); }

    Status put_ReminderSoundFile(std::u16string_view path) override {
        Told("ReminderSoundFile", path);
        return Real.put_ReminderSoundFile(path);
    }

    Status get_IsRecurring(bool& recurring) override { return Real.get_IsRecurring(recurring); }

    Status GetRecurrencePattern(ComPtr<IRecurrencePattern>& pattern) override {
        if (Failed(PatternResult) || HidesPattern) {
            return PatternResult;
        }
        if (Pattern != nullptr) {
            Pattern->AddRef();
            pattern = ComPtr<IRecurrencePattern>::Adopt(Pattern);
            return Status::Ok;
        }
        return Real.GetRecurrencePattern(pattern);
    }

    Status ClearRecurrencePattern() override {
        if (Notes != nullptr) {
            Notes->Lines.emplace_back("ClearRecurrencePattern");
        }
        return Real.ClearRecurrencePattern();
    }

    Status Save() override { return Real.Save(); }

    Status Delete() override { return Real.Delete(); }

    Status OidResult = Status::Ok; // a failure is given back without asking further, and so for those below
    Status StartResult = Status::Ok;
    Status EndResult = Status::Ok;
    Status LocationResult = Status::Ok;
    Status PatternResult = Status::Ok;
    Status InkResult = Status::Ok;         // of reading
    bool HidesPattern = false;             // it is asked for with success, and not given
    IRecurrencePattern* Pattern = nullptr; // given instead of the real one's, if there is one
    PutNotes* Notes = nullptr;             // where to note what it is told, if anywhere
    int References = 0;

  private:
    template <class Value> void Told(const char* name, const Value& value) {
        if (Notes != nullptr) {
            Notes->Add(name, value);
        }
    }

    IAppointment& Real;
};

} // namespace tavo::test
