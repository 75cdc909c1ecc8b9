// Feeds any bytes to the reader of the category file.
#include "store/category_codec.h"

#include <algorithm>
#include <cstdlib>

namespace {

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    tavo::CategoryFileLists lists;
    const bool isWhole = tavo::DecodeCategoryFile(bytes, lists);
    const std::vector<std::uint8_t> written = tavo::EncodeCategoryFile(lists[0], lists[1], lists[2]);
    // What was read lies within the bytes, and so does the memory taken for it.
    for (const std::vector<tavo::Oid>& list : lists) {
        Require(list.capacity() <= size / sizeof(tavo::Oid));
    }
    // A file that is whole begins with exactly what would be written for it.
    Require(!isWhole || (written.size() <= size && std::equal(written.begin(), written.end(), data)));
    // What is written is read again.
    tavo::CategoryFileLists again;
    Require(tavo::DecodeCategoryFile(written, again) && again == lists);
    return 0;
}
