// Each value with its type and length, in one run of bytes.
#include "host/outlook/row_sum.h"

#include "host/ink/checksum.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <span>
#include <vector>

namespace tavo::outlook {

namespace {

static_assert(std::endian::native == std::endian::little); // stores that exist have sums over the low byte first

constexpr std::size_t kOrdinaryItem = 512; // bytes

// Written at every item of an import, so without looking at each byte.
class RowBytes {
  public:
    void Append(std::int64_t number) { Append(&number, sizeof number); }

    void AppendSized(const void* data, int size) {
        Append(size);
        Append(data, static_cast<std::size_t>(size));
    }

    void AppendType(int type) { Append(&type, 1); }

    std::span<const std::uint8_t> All() const { return {Bytes.data(), Size}; }

  private:
    void Append(const void* data, std::size_t size) {
        if (Bytes.size() - Size < size) {
            Bytes.resize(2 * (Size + size));
        }
        if (size > 0) {
            std::memcpy(Bytes.data() + Size, data, size);
        }
        Size += size;
    }

    std::vector<std::uint8_t> Bytes = std::vector<std::uint8_t>(kOrdinaryItem);
    std::size_t Size = 0;
};

void Append(RowBytes& bytes, sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    bytes.AppendType(type);
    if (type == SQLITE_INTEGER) {
        bytes.Append(sqlite3_value_int64(value));
    } else if (type != SQLITE_NULL) {
        const void* data =
            sqlite3_value_blob(value); // of a text too: as a text it would be copied, for the zero at its end
        bytes.AppendSized(data, sqlite3_value_bytes(value));
    }
}

void SumRow(sqlite3_context* context, int count, sqlite3_value** values) {
    try {
        RowBytes bytes;
        for (int index = 0; index < count; ++index) {
            Append(bytes, values[index]);
        }
        // Signed, so that it never takes more than four bytes of the file.
        sqlite3_result_int(context, static_cast<std::int32_t>(ink::Checksum(bytes.All())));
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
