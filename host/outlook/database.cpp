// SQLite calls and their failures.
#include "host/outlook/database.h"

#include "host/outlook/row_sum.h"

#include <cerrno>
#include <cstring>

namespace tavo::outlook {

Status StatusFromSqlite(int code, int systemError) {
    switch (code & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return Status::Ok;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Status::Locked;
    case SQLITE_FULL:
        return Status::DiskFull;
    case SQLITE_CORRUPT:
        return Status::Corrupt;
    case SQLITE_NOTADB:
        return Status::NotOurs;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return Status::AccessDenied;
    case SQLITE_NOMEM:
        return Status::OutOfMemory;
    case SQLITE_TOOBIG:
        return Status::TooLarge;
    case SQLITE_CONSTRAINT:
        return Status::InvalidArgument;
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
        if (systemError == ENOSPC || systemError == EDQUOT) {
            return Status::DiskFull;
        }
        if (systemError == EACCES || systemError == EPERM || systemError == EROFS) {
            return Status::AccessDenied;
        }
        // A page that should be there is not: the file was cut.
        return code == SQLITE_IOERR_SHORT_READ ? Status::Corrupt : Status::Fail;
    default:
        return Status::Fail;
    }
}

Database::~Database() {
    Close();
}

Status Database::Open(const std::string& uri, int flags, int lockPatience) {
    Close();
    const int code = sqlite3_open_v2(uri.c_str(), &Handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    if (code != SQLITE_OK) {
        const Status status = StatusFromSqlite(code, Handle != nullptr ? sqlite3_system_errno(Handle) : 0);
        Close();
        return status;
    }
    sqlite3_extended_result_codes(Handle, 1);
    sqlite3_busy_timeout(Handle, lockPatience);
    // Whoever made the file may have written more into its schema than we did: that runs nothing, and no statement
    // changes the schema behind SQLite's back.
    sqlite3_db_config(Handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(Handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    return AddRowSum(Handle);
}

void Database::Close() {
    Statements.clear();
    sqlite3_close_v2(Handle);
    Handle = nullptr;
}

Status Database::Run(const char* sql) {
    return sqlite3_exec(Handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK ? Status::Ok : LastStatus();
}

Status Database::LastStatus() const {
    return StatusFromSqlite(sqlite3_extended_errcode(Handle), sqlite3_system_errno(Handle));
}

bool Database::InTransaction() const {
    return sqlite3_get_autocommit(Handle) == 0;
}

Query::Query(Database& database, const char* sql) : Owner(database) {
    std::unique_ptr<Database::Statement>& kept = Owner.Statements[sql];
    // A text that was no constant has left its place to another.
    if (kept != nullptr && !kept->Busy && std::strcmp(sqlite3_sql(kept->Compiled), sql) != 0) {
        kept.reset();
    }
    if (kept == nullptr) {
        kept = std::make_unique<Database::Statement>();
        Note(sqlite3_prepare_v3(Owner.Handle, sql, -1, SQLITE_PREPARE_PERSISTENT, &kept->Compiled, nullptr));
        if (kept->Compiled == nullptr) {
            Owner.Statements.erase(sql);
            return;
        }
    }
    if (kept->Busy) {
        // A visitor in the middle of this statement's rows runs it again.
        Note(sqlite3_prepare_v2(Owner.Handle, sql, -1, &Compiled, nullptr));
        return;
    }
    Shared = kept.get();
    Shared->Busy = true;
    Compiled = Shared->Compiled;
}

Query::~Query() {
    if (Shared == nullptr) {
        sqlite3_finalize(Compiled);
        return;
    }
    sqlite3_reset(Compiled);
    sqlite3_clear_bindings(Compiled);
    Shared->Busy = false;
}

void Query::Note(int code) {
    if (code != SQLITE_OK && code != SQLITE_ROW && code != SQLITE_DONE && Succeeded(Outcome)) {
        Outcome = StatusFromSqlite(sqlite3_extended_errcode(Owner.Handle), sqlite3_system_errno(Owner.Handle));
        if (Succeeded(Outcome)) {
            Outcome = Status::Fail;
        }
    }
}

Query& Query::Bind(std::int64_t value) {
    if (Compiled != nullptr) {
        Note(sqlite3_bind_int64(Compiled, NextParameter++, value));
    }
    return *this;
}

Query& Query::Bind(std::string_view text) {
    if (Compiled != nullptr) {
        // A null pointer would bind NULL instead of the empty text.
        const char* data = text.empty() ? "" : text.data();
        Note(sqlite3_bind_text64(Compiled, NextParameter++, data, text.size(), SQLITE_STATIC, SQLITE_UTF8));
    }
    return *this;
}

Query& Query::Bind(std::span<const std::uint8_t> blob) {
    if (Compiled != nullptr) {
        const void* data = blob.empty() ? static_cast<const void*>("") : blob.data();
        Note(sqlite3_bind_blob64(Compiled, NextParameter++, data, blob.size(), SQLITE_STATIC));
    }
    return *this;
}

Query& Query::BindNull() {
    if (Compiled != nullptr) {
        Note(sqlite3_bind_null(Compiled, NextParameter++));
    }
    return *this;
}

bool Query::Next() {
    if (Failed(Outcome) || Compiled == nullptr) {
        return false;
    }
    const int code = sqlite3_step(Compiled);
    Note(code);
    return code == SQLITE_ROW;
}

Status Query::Finish() {
    while (Next()) {
    }
    if (Compiled != nullptr) {
        sqlite3_reset(Compiled);
    }
    NextParameter = 1;
    return Outcome;
}

std::string_view Query::Text(int column) const {
    const auto* data = reinterpret_cast<const char*>(sqlite3_column_text(Compiled, column));
    return data == nullptr ? std::string_view()
                           : std::string_view(data, static_cast<std::size_t>(sqlite3_column_bytes(Compiled, column)));
}

std::span<const std::uint8_t> Query::Blob(int column) const {
    const auto* data = static_cast<const std::uint8_t*>(sqlite3_column_blob(Compiled, column));
    return data == nullptr ? std::span<const std::uint8_t>()
                           : std::span(data, static_cast<std::size_t>(sqlite3_column_bytes(Compiled, column)));
}

} // namespace tavo::outlook
