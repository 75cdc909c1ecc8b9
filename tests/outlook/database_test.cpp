// Statements that are prepared once, and those that are not.
#include "host/outlook/database.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tavo::outlook::test {

namespace {

class Statements : public testing::Test {
  protected:
    Statements() { EXPECT_EQ(Source.Open("file::memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_URI, 0), Status::Ok); }

    std::int64_t Ask(const char* sql) {
        Query query(Source, sql);
        return query.Next() ? query.Integer(0) : -1;
    }

    Database Source;
};

} // namespace

// Memory that one text has left may hold the next.
TEST_F(Statements, AnotherTextInTheSamePlaceIsAnotherStatement) {
    char sql[] = "SELECT 1";
    EXPECT_EQ(Ask(sql), 1);
    EXPECT_EQ(Ask(sql), 1);
    sql[std::strlen(sql) - 1] = '2';
    EXPECT_EQ(Ask(sql), 2);
    sql[0] = 'X';
    EXPECT_EQ(Ask(sql), -1);
    sql[0] = 'S';
    EXPECT_EQ(Ask(sql), 2);
}

TEST_F(Statements, OneThatIsInTheMiddleOfItsRowsRunsBesideItself) {
    constexpr const char* kSql = "SELECT 1 UNION SELECT 2 ORDER BY 1";
    Query outer(Source, kSql);
    ASSERT_TRUE(outer.Next());
    EXPECT_EQ(Ask(kSql), 1);
    ASSERT_TRUE(outer.Next());
    EXPECT_EQ(outer.Integer(0), 2);
}

} // namespace tavo::outlook::test
