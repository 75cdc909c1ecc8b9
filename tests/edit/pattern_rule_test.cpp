// A rule read from a pattern and put into it, property by property.
#include "edit/pattern_rule.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tavo {
namespace {

// Holds numbers by the names of their properties; one of them may be out of order.
class NumberedPattern final : public IRecurrencePattern {
  public:
    void AddRef() override {}

    void Release() override {}

    Status get_RecurrenceType(std::int32_t& type) override { return Get("type", type); }

    Status put_RecurrenceType(std::int32_t type) override { return Put("type", type); }

    Status get_PatternStartDate(DATE&) override { return Status::Fail; }

    Status put_PatternStartDate(DATE) override { return Status::Fail; }

    Status get_PatternEndDate(DATE&) override { return Status::Fail; }

    Status put_PatternEndDate(DATE) override { return Status::Fail; }

    Status get_NoEndDate(bool&) override { return Status::Fail; }

    Status put_NoEndDate(bool) override { return Status::Fail; }

    Status get_Occurrences(std::int32_t&) override { return Status::Fail; }

    Status put_Occurrences(std::int32_t) override { return Status::Fail; }

    Status get_Interval(std::int32_t& interval) override { return Get("interval", interval); }

    Status put_Interval(std::int32_t interval) override { return Put("interval", interval); }

    Status get_DayOfWeekMask(std::int32_t& mask) override { return Get("mask", mask); }

    Status put_DayOfWeekMask(std::int32_t mask) override { return Put("mask", mask); }

    Status get_DayOfMonth(std::int32_t& day) override { return Get("day", day); }

    Status put_DayOfMonth(std::int32_t day) override { return Put("day", day); }

    Status get_Instance(std::int32_t& instance) override { return Get("instance", instance); }

    Status put_Instance(std::int32_t instance) override { return Put("instance", instance); }

    Status get_MonthOfYear(std::int32_t& month) override { return Get("month", month); }

    Status put_MonthOfYear(std::int32_t month) override { return Put("month", month); }

    Status get_StartTime(DATE&) override { return Status::Fail; }

    Status put_StartTime(DATE) override { return Status::Fail; }

    Status get_EndTime(DATE&) override { return Status::Fail; }

    Status put_EndTime(DATE) override { return Status::Fail; }

    Status get_Duration(std::int32_t&) override { return Status::Fail; }

    Status put_Duration(std::int32_t) override { return Status::Fail; }

    std::map<std::string, std::int32_t> Numbers{{"type", 6}, {"interval", 12}, {"mask", 64},
                                                {"day", 21}, {"instance", 3},  {"month", 11}};
    std::string Broken;

  private:
    Status Get(const std::string& name, std::int32_t& number) {
        number = Numbers[name];
        return name == Broken ? Status::NotFound : Status::Ok;
    }

    Status Put(const std::string& name, std::int32_t number) {
        if (name == Broken) {
            return Status::NotFound;
        }
        Numbers[name] = number;
        return Status::Ok;
    }
};

TEST(PatternRule, IsReadPropertyByProperty) {
    NumberedPattern pattern;
    const std::optional<PatternRule> rule = ReadRule(pattern);
    ASSERT_TRUE(rule.has_value());
    EXPECT_EQ(rule->Type, 6);
    EXPECT_EQ(rule->Interval, 12);
    EXPECT_EQ(rule->Mask, 64);
    EXPECT_EQ(rule->DayOfMonth, 21);
    EXPECT_EQ(rule->Instance, 3);
    EXPECT_EQ(rule->Month, 11);
}

TEST(PatternRule, IsNotReadWhereOnePropertyCannotBeRead) {
    for (const auto& [name, number] : NumberedPattern().Numbers) {
        NumberedPattern pattern;
        pattern.Broken = name;
        EXPECT_FALSE(ReadRule(pattern).has_value()) << name << ' ' << number;
    }
}

TEST(PatternRule, IsPutPropertyByProperty) {
    NumberedPattern pattern;
    PatternRule rule;
    rule.Type = 3;
    rule.Interval = 2;
    rule.Mask = 8;
    rule.DayOfMonth = 30;
    rule.Instance = 5;
    rule.Month = 4;
    EXPECT_EQ(PutRule(pattern, rule), Status::Ok);
    const std::map<std::string, std::int32_t> expected{{"type", 3}, {"interval", 2}, {"mask", 8},
                                                       {"day", 30}, {"instance", 5}, {"month", 4}};
    EXPECT_EQ(pattern.Numbers, expected);
}

TEST(PatternRule, ThePropertyThatCannotBePutIsTheLast) {
    NumberedPattern pattern;
    pattern.Broken = "mask";
    PatternRule rule;
    rule.Interval = 2;
    rule.Month = 4;
    EXPECT_EQ(PutRule(pattern, rule), Status::NotFound);
    EXPECT_EQ(pattern.Numbers["interval"], 2);
    EXPECT_EQ(pattern.Numbers["month"], 11);
}

} // namespace
} // namespace tavo
