// The recurrence pattern of an appointment object: a view on that object's own properties.
#pragma once

#include "host/outlook/appointment.h"

namespace tavo::outlook {

class RecurrencePattern final : public RefCounted<IRecurrencePattern> {
  public:
    explicit RecurrencePattern(Appointment& item);

    Status get_RecurrenceType(std::int32_t& type) override;
    Status put_RecurrenceType(std::int32_t type) override;
    Status get_PatternStartDate(DATE& date) override;
    Status put_PatternStartDate(DATE date) override;
    Status get_PatternEndDate(DATE& date) override;
    Status put_PatternEndDate(DATE date) override;
    Status get_NoEndDate(bool& noEnd) override;
    Status put_NoEndDate(bool noEnd) override;
    Status get_Occurrences(std::int32_t& count) override;
    Status put_Occurrences(std::int32_t count) override;
    Status get_Interval(std::int32_t& interval) override;
    Status put_Interval(std::int32_t interval) override;
    Status get_DayOfWeekMask(std::int32_t& mask) override;
    Status put_DayOfWeekMask(std::int32_t mask) override;
    Status get_DayOfMonth(std::int32_t& day) override;
    Status put_DayOfMonth(std::int32_t day) override;
    Status get_Instance(std::int32_t& instance) override;
    Status put_Instance(std::int32_t instance) override;
    Status get_MonthOfYear(std::int32_t& month) override;
    Status put_MonthOfYear(std::int32_t month) override;
    Status get_StartTime(DATE& time) override;
    Status put_StartTime(DATE time) override;
    Status get_EndTime(DATE& time) override;
    Status put_EndTime(DATE time) override;
    Status get_Duration(std::int32_t& minutes) override;
    Status put_Duration(std::int32_t minutes) override;

  private:
    ~RecurrencePattern() override = default;

    // Runs on the appointment's properties, when it can be read.
    template <class Work> Status With(Work&& work);
    // The same, for a property that makes the appointment recur.
    template <class Work> Status Putting(PutSet flag, Work&& work);

    ComPtr<Appointment> Owner;
};

} // namespace tavo::outlook
