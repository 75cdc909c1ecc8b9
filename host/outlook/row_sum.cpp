// Each value with its type and length, in one run of bytes.
#include "host/outlook/row_sum.h"

#include "host/ink/checksum.h"

#include <cstring>
#include <exception>
#include <vector>

namespace tavo::outlook {

namespace {

using Bytes = std::vector<std::uint8_t>;

void Append(Bytes& bytes, std::int64_t number) {
    for (int shift = 0; shift < 64; shift += 8) {
        bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint64_t>(number) >> shift));
    }
}

void Append(Bytes& bytes, const void* data, int size) {
    Append(bytes, size);
    const auto* first = static_cast<const std::uint8_t*>(data);
    bytes.insert(bytes.end(), first, first + size);
}

void Append(Bytes& bytes, sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    bytes.push_back(static_cast<std::uint8_t>(type));
    if (type == SQLITE_INTEGER) {
        Append(bytes, sqlite3_value_int64(value));
    } else if (type == SQLITE_TEXT) {
        const auto* text = sqlite3_value_text(value);
        Append(bytes, text, sqlite3_value_bytes(value));
    } else if (type != SQLITE_NULL) {
        const void* blob = sqlite3_value_blob(value);
        Append(bytes, blob, sqlite3_value_bytes(value));
    }
}

void SumRow(sqlite3_context* context, int count, sqlite3_value** values) {
    try {
        Bytes bytes;
        bytes.reserve(512); // an ordinary item
        for (int index = 0; index < count; ++index) {
            Append(bytes, values[index]);
        }
        // Signed, so that it never takes more than four bytes of the file.
        sqlite3_result_int(context, static_cast<std::int32_t>(ink::Checksum(bytes)));
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

} // namespace

Status AddRowSum(sqlite3* connection) {
    constexpr int kAnyNumber = -1;
    const int code = sqlite3_create_function_v2(connection, "row_sum", kAnyNumber,
                                                SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr, SumRow,
                                                nullptr, nullptr, nullptr);
    return StatusFromSqlite(code, 0);
}

std::string SqlToSum(const SummedTable& table) {
    return std::string("UPDATE ") + table.Name + " SET sum = row_sum(" + table.Columns + ");";
}

std::string SqlToFindChanged(const SummedTable& table) {
    return std::string("SELECT ") + table.Key + " FROM " + table.Name + " WHERE sum IS NOT row_sum(" + table.Columns +
           ")";
}

} // namespace tavo::outlook
