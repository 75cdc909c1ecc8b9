// A recurrence pattern that passes everything on to another one, and notes what it is told.
#pragma once

#include "tests/support/put_notes.h"

namespace tavo::test {

// Lives on the stack of a test.
class PatternProbe final : public IRecurrencePattern {
  public:
    PatternProbe(IRecurrencePattern& real, PutNotes& notes) : Real(real), Notes(notes) {}

    void AddRef() override { ++References; }

    void Release() override { --References; }

    Status get_RecurrenceType(std::int32_t& type) override { return Real.get_RecurrenceType(type); }

    Status put_RecurrenceType(std::int32_t type) override {
        Notes.Add("RecurrenceType", type);
        return Real.put_RecurrenceType(type);
    }

    Status get_PatternStartDate(DATE& date) override { return Real.get_PatternStartDate(date); }

    Status put_PatternStartDate(DATE date) override {
        Notes.Add("PatternStartDate", date);
        return Real.put_PatternStartDate(date);
    }

    Status get_PatternEndDate(DATE& date) override { return Real.get_PatternEndDate(date); }

    Status put_PatternEndDate(DATE date) override {
        Notes.Add("PatternEndDate", date);
        return Real.put_PatternEndDate(date);
    }

    Status get_NoEndDate(bool& noEnd) override { return Real.get_NoEndDate(noEnd); }

    Status put_NoEndDate(bool noEnd) override {
        Notes.Add("NoEndDate", noEnd);
        return Real.put_NoEndDate(noEnd);
    }

    Status get_Occurrences(std::int32_t& count) override { return Real.get_Occurrences(count); }

    Status put_Occurrences(std::int32_t count) override {
        Notes.Add("Occurrences", count);
        return Real.put_Occurrences(count);
    }

    Status get_Interval(std::int32_t& interval) override { return Real.get_Interval(interval); }

    Status put_Interval(std::int32_t interval) override {
        Notes.Add("Interval", interval);
        return Real.put_Interval(interval);
    }

    Status get_DayOfWeekMask(std::int32_t& mask) override { return Real.get_DayOfWeekMask(mask); }

    Status put_DayOfWeekMask(std::int32_t mask) override {
        Notes.Add("DayOfWeekMask", mask);
        return Real.put_DayOfWeekMask(mask);
    }

    Status get_DayOfMonth(std::int32_t& day) override { return Real.get_DayOfMonth(day); }

    Status put_DayOfMonth(std::int32_t day) override {
        Notes.Add("DayOfMonth", day);
        return Real.put_DayOfMonth(day);
    }

    Status get_Instance(std::int32_t& instance) override { return Real.get_Instance(instance); }

    Status put_Instance(std::int32_t instance) override {
        Notes.Add("Instance", instance);
        return Real.put_Instance(instance);
    }

    Status get_MonthOfYear(std::int32_t& month) override { return Real.get_MonthOfYear(month); }

    Status put_MonthOfYear(std::int32_t month) override {
        Notes.Add("MonthOfYear", month);
        return Real.put_MonthOfYear(month);
    }

    Status get_StartTime(DATE& time) override { return Real.get_StartTime(time); }

    Status put_StartTime(DATE time) override {
        Notes.Add("StartTime", time);
        return Real.put_StartTime(time);
    }

    Status get_EndTime(DATE& time) override { return Real.get_EndTime(time); }

    Status put_EndTime(DATE time) override {
        Notes.Add("EndTime", time);
        return Real.put_EndTime(time);
    }

    Status get_Duration(std::int32_t& minutes) override { return Real.get_Duration(minutes); }

    Status put_Duration(std::int32_t minutes) override {
        Notes.Add("Duration", minutes);
        return Real.put_Duration(minutes);
    }

    int References = 0;

  private:
    IRecurrencePattern& Real;
    PutNotes& Notes;
};

} // namespace tavo::test
