// One SQLite connection with its prepared statements, speaking in the device's status codes.
#pragma once

#include "platform/status.h"

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tavo::outlook {

class Database {
  public:
    Database() = default;
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // `flags` are SQLite's opening flags; nothing is written by opening.
    Status Open(const std::string& uri, int flags, int lockPatience);
    void Close();

    // Runs statements that give no rows.
    Status Run(const char* sql);
    // The result of the last call on the connection as a status.
    Status LastStatus() const;
    bool InTransaction() const;

    sqlite3* Raw() const { return Handle; }

  private:
    friend class Query;

    struct Statement {
        sqlite3_stmt* Compiled = nullptr;
        bool Busy = false;

        ~Statement() { sqlite3_finalize(Compiled); }
    };

    // Keyed by the address of the text.
    std::unordered_map<const char*, std::unique_ptr<Statement>> Statements;
    sqlite3* Handle = nullptr;
};

// One run of a statement: bind its parameters in order, then walk the rows or run it to its end.
class Query {
  public:
    // Of a text that stays where it is the statement is prepared once for each connection; any other is prepared anew.
    Query(Database& database, const char* sql);
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    Query& Bind(std::int64_t value);
    Query& Bind(std::string_view text);              // the text must live until the query ends
    Query& Bind(std::span<const std::uint8_t> blob); // likewise
    Query& BindNull();

    // True while there is a row. False at the end and on failure: see Result.
    bool Next();
    // Runs to the end; for statements whose rows do not matter. Leaves the statement ready to be bound again.
    Status Finish();

    Status Result() const { return Outcome; }

    std::int64_t Integer(int column) const { return sqlite3_column_int64(Compiled, column); }

    int Small(int column) const { return sqlite3_column_int(Compiled, column); }

    bool IsNull(int column) const { return sqlite3_column_type(Compiled, column) == SQLITE_NULL; }

    // Valid until the next step.
    std::string_view Text(int column) const;
    std::span<const std::uint8_t> Blob(int column) const;

  private:
    void Note(int code);

    Database& Owner;
    Database::Statement* Shared = nullptr; // of the connection, marked busy; null: this query's own
    sqlite3_stmt* Compiled = nullptr;
    int NextParameter = 1;
    Status Outcome = Status::Ok;
};

// Failures of SQLite in the device's codes. `systemError` is errno of the failing call, where there was one.
Status StatusFromSqlite(int code, int systemError);

} // namespace tavo::outlook
