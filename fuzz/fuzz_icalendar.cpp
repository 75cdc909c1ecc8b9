// Feeds any bytes to the reader of calendar files.
#include "host/exchange/calendar_file.h"
#include "host/posix/zone_database.h"
#include "host/rules/zones.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace {

using namespace tavo::exchange;
namespace rules = tavo::rules;
using tavo::rules::StoredException;
using tavo::rules::StoredItem;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

// Holds what every reader of a file may rely on.
class CheckingSink final : public IEntrySink {
  public:
    explicit CheckingSink(int lines) : Lines(lines) {}

    bool OnItem(StoredItem item, const std::vector<tavo::TagList>& /*kinds*/, int line) override {
        RequireLine(line);
        Require(!item.Uid.empty() && item.Item == 0);
        Require((item.Pattern.Type == tavo::kRecursForeign) == !item.ForeignRule.empty());
        Require(
            std::is_sorted(item.Exceptions.begin(), item.Exceptions.end(),
                           [](const StoredException& a, const StoredException& b) { return a.Original < b.Original; }));
        return true;
    }

    bool OnLoneOccurrence(const LoneOccurrence& occurrence, int line) override {
        RequireLine(line);
        Require(!occurrence.Uid.empty() && occurrence.Alone.Uid.starts_with(occurrence.Uid));
        return true;
    }

    bool OnRefused(int line, const std::string& reason) override {
        RequireLine(line);
        Require(!reason.empty());
        return true;
    }

    void OnMended(int line, const std::string& what) override {
        RequireLine(line);
        Require(!what.empty());
    }

    bool OnPassedOver(PassedOver /*what*/, int /*line*/, const std::string& /*reason*/) override { return true; }

    bool OnProgress(std::int64_t offset) override {
        Require(offset >= Offset); // a bar never runs backwards
        Offset = offset;
        return true;
    }

    std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) override {
        return rules::LoadZone(tavo::posix::SystemZones(), name);
    }

    bool DefineZone(const std::string& name, const std::string& component) override {
        Require(!name.empty() && !component.empty());
        return true;
    }

    void RequireLine(int line) const { Require(line >= 1 && line <= Lines); }

  private:
    int Lines;
    std::int64_t Offset = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    MemorySource source(text);
    for (const Manner manner : {Manner::Lenient, Manner::Strict}) {
        CheckingSink sink(static_cast<int>(std::count_if(text.begin(), text.end(), IsLineEnd)) + 1);
        FileFault fault;
        if (ReadCalendarFile(source, sink, manner, fault) == FileOutcome::Broken) {
            sink.RequireLine(fault.Line);
            Require(!fault.Reason.empty());
        }
    }
    return 0;
}
