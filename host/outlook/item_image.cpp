// The bytes of an item: numbers of variable length, texts with their length before them.
#include "host/outlook/item_image.h"

#include "host/outlook/text.h"
#include "host/rules/save_rules.h"

namespace tavo::outlook {

namespace {

constexpr std::uint8_t kFirstImageVersion = 1; // exceptions without their origin
constexpr std::uint8_t kImageVersionWithoutCarried = 2;
constexpr std::uint8_t kImageVersion = 3;
constexpr std::size_t kOrdinaryItem = 512; // bytes
constexpr std::size_t kMaxParts = 100000;  // exceptions or tags of one item

class Writer {
  public:
    Writer() { Bytes.reserve(kOrdinaryItem); }

    void Number(std::int64_t value) {
        // Zigzag: small numbers of either sign stay short.
        auto bits = (static_cast<std::uint64_t>(value) << 1) ^ static_cast<std::uint64_t>(value >> 63);
        while (bits >= 0x80) {
            Bytes.push_back(static_cast<std::uint8_t>(bits | 0x80));
            bits >>= 7;
        }
        Bytes.push_back(static_cast<std::uint8_t>(bits));
    }

    template <class Text> void Block(const Text& text) {
        Number(static_cast<std::int64_t>(text.size()));
        Bytes.insert(Bytes.end(), text.begin(), text.end());
    }

    void Wide(std::u16string_view text) { Block(ToUtf8(text)); }

    void OptionalWide(const std::optional<std::u16string>& text) {
        Number(text ? 1 : 0);
        if (text) {
            Wide(*text);
        }
    }

    std::vector<std::uint8_t> Bytes;
};

class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes) : Bytes(bytes) {}

    std::int64_t Number() {
        std::uint64_t bits = 0;
        for (int shift = 0; shift < 64; shift += 7) {
            if (At >= Bytes.size()) {
                Good = false;
                return 0;
            }
            const std::uint8_t byte = Bytes[At++];
            bits |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
            if ((byte & 0x80) == 0) {
                return static_cast<std::int64_t>(bits >> 1) ^ -static_cast<std::int64_t>(bits & 1);
            }
        }
        Good = false;
        return 0;
    }

    std::int32_t Small() { return static_cast<std::int32_t>(Number()); }

    std::span<const std::uint8_t> Block() {
        const std::int64_t size = Number();
        if (!Good || size < 0 || static_cast<std::uint64_t>(size) > Bytes.size() - At) {
            Good = false;
            return {};
        }
        const auto block = Bytes.subspan(At, static_cast<std::size_t>(size));
        At += block.size();
        return block;
    }

    std::string Narrow() {
        const auto block = Block();
        return {block.begin(), block.end()};
    }

    std::u16string Wide() { return ToUtf16(Narrow()); }

    std::optional<std::u16string> OptionalWide() { return Number() != 0 ? std::optional(Wide()) : std::nullopt; }

    // How many parts follow; no more than there are bytes for.
    std::size_t Count() {
        const std::int64_t count = Number();
        if (count < 0 || static_cast<std::uint64_t>(count) > std::min(kMaxParts, Bytes.size() - At)) {
            Good = false;
            return 0;
        }
        return static_cast<std::size_t>(count);
    }

    bool IsGood() const { return Good; }

    bool AtEnd() const { return At == Bytes.size(); }

  private:
    std::span<const std::uint8_t> Bytes;
    std::size_t At = 0;
    bool Good = true;
};

void WritePattern(Writer& writer, const StoredPattern& pattern) {
    writer.Number(pattern.Type);
    writer.Number(pattern.Interval);
    writer.Number(pattern.DayOfWeekMask);
    writer.Number(pattern.DayOfMonth);
    writer.Number(pattern.Instance);
    writer.Number(pattern.MonthOfYear);
    writer.Number(static_cast<std::int64_t>(pattern.End));
    writer.Number(pattern.Occurrences);
    writer.Number(pattern.LastDay);
}

void ReadPattern(Reader& reader, StoredPattern& pattern) {
    pattern.Type = reader.Small();
    pattern.Interval = reader.Small();
    pattern.DayOfWeekMask = reader.Small();
    pattern.DayOfMonth = reader.Small();
    pattern.Instance = reader.Small();
    pattern.MonthOfYear = reader.Small();
    pattern.End = static_cast<PatternEnd>(reader.Small());
    pattern.Occurrences = reader.Small();
    pattern.LastDay = reader.Number();
}

// What else is known of it follows from the rest, or from where it is kept.
struct Placed {
    Oid Item;
    Seconds Start;
    Seconds End;
};

void WriteItem(Writer& writer, const StoredItem& item, const Placed& placed) {
    writer.Number(placed.Item);
    writer.Block(item.Uid);
    writer.Wide(item.Subject);
    writer.Wide(item.Location);
    writer.Wide(item.Categories);
    writer.Wide(item.Body);
    writer.Number(placed.Start);
    writer.Number(placed.End);
    writer.Block(item.Zone);
    writer.Number(item.ZoneStart);
    writer.Number(item.ZoneEnd);
    writer.Number((item.AllDay ? 1 : 0) | (item.ReminderSet ? 2 : 0));
    writer.Number(item.BusyStatus);
    writer.Number(item.Sensitivity);
    writer.Number(item.ReminderMinutes);
    writer.Number(item.ReminderOptions);
    writer.Wide(item.ReminderSound);
    WritePattern(writer, item.Pattern);
    writer.Block(item.ForeignRule);
}

void ReadItem(Reader& reader, StoredItem& item) {
    item.Item = reader.Small();
    item.Uid = reader.Narrow();
    item.Subject = reader.Wide();
    item.Location = reader.Wide();
    item.Categories = reader.Wide();
    item.Body = reader.Wide();
    item.Start = reader.Number();
    item.End = reader.Number();
    item.Zone = reader.Narrow();
    item.ZoneStart = reader.Number();
    item.ZoneEnd = reader.Number();
    const std::int64_t flags = reader.Number();
    item.AllDay = (flags & 1) != 0;
    item.ReminderSet = (flags & 2) != 0;
    item.BusyStatus = reader.Small();
    item.Sensitivity = reader.Small();
    item.ReminderMinutes = reader.Small();
    item.ReminderOptions = reader.Small();
    item.ReminderSound = reader.Wide();
    ReadPattern(reader, item.Pattern);
    item.ForeignRule = reader.Narrow();
}

enum class Origins { Left, Written }; // whether it is said where an exception came from

void WriteExceptions(Writer& writer, std::span<const StoredException> exceptions, Origins origins) {
    writer.Number(static_cast<std::int64_t>(exceptions.size()));
    for (const StoredException& exception : exceptions) {
        writer.Number(exception.Original);
        writer.Number(static_cast<std::int64_t>(exception.Kind));
        writer.Number(exception.Start);
        writer.Number(exception.End);
        writer.OptionalWide(exception.Subject);
        writer.OptionalWide(exception.Location);
        writer.Number(origins == Origins::Written ? exception.Source : 0);
    }
}

void ReadExceptions(Reader& reader, std::uint8_t version, std::vector<StoredException>& exceptions) {
    for (std::size_t left = reader.Count(); left > 0 && reader.IsGood(); --left) {
        StoredException& exception = exceptions.emplace_back();
        exception.Original = reader.Number();
        exception.Kind = reader.Number() != 0 ? ExceptionKind::Moved : ExceptionKind::Cancelled;
        exception.Start = reader.Number();
        exception.End = reader.Number();
        exception.Subject = reader.OptionalWide();
        exception.Location = reader.OptionalWide();
        exception.Source = version > kFirstImageVersion ? reader.Number() : 0;
    }
}

void WriteCarried(Writer& writer, const StoredItem& item) {
    writer.Block(item.Carried);
    for (const StoredException& exception : item.Exceptions) {
        writer.Block(exception.Carried);
    }
}

void ReadCarried(Reader& reader, StoredItem& item) {
    item.Carried = reader.Narrow();
    for (StoredException& exception : item.Exceptions) {
        exception.Carried = reader.Narrow();
    }
}

void WriteTag(Writer& writer, TagPlace place) {
    writer.Number(static_cast<std::int64_t>(place.List));
    writer.Number(place.Position);
}

void ReadTag(Reader& reader, TagPlace& place) {
    place.List = static_cast<TagList>(reader.Small());
    place.Position = reader.Small();
}

// Multiply and rotate over eight bytes a step. Never one of the small numbers that mean something else.
std::int64_t HashOf(const std::vector<std::uint8_t>& bytes) {
    std::uint64_t hash = 0x9E3779B97F4A7C15U ^ bytes.size();
    for (std::size_t at = 0; at < bytes.size(); at += 8) {
        std::uint64_t word = 0;
        for (std::size_t index = at; index < std::min(at + 8, bytes.size()); ++index) {
            word = word << 8 | bytes[index];
        }
        hash ^= word * 0xBF58476D1CE4E5B9U;
        hash = (hash << 31 | hash >> 33) * 0x94D049BB133111EBU;
    }
    hash ^= hash >> 29;
    return static_cast<std::int64_t>(hash | 2);
}

} // namespace

std::vector<std::uint8_t> EncodeTag(TagPlace place) {
    Writer writer;
    WriteTag(writer, place);
    return std::move(writer.Bytes);
}

bool DecodeTag(std::span<const std::uint8_t> bytes, TagPlace& place) {
    Reader reader(bytes);
    ReadTag(reader, place);
    return reader.IsGood() && reader.AtEnd();
}

std::vector<std::uint8_t> EncodeImage(const ItemImage& image) {
    Writer writer;
    writer.Bytes.push_back(kImageVersion);
    WriteItem(writer, image.Item, {image.Item.Item, image.Item.Start, image.Item.End});
    WriteExceptions(writer, image.Item.Exceptions, Origins::Written);
    writer.Number(image.Source);
    writer.Number(image.HasInk ? 1 : 0);
    if (image.HasInk) {
        writer.Block(image.Item.Ink);
    }
    writer.Number(static_cast<std::int64_t>(image.Tags.size()));
    for (const TagPlace& tag : image.Tags) {
        WriteTag(writer, tag);
    }
    WriteCarried(writer, image.Item);
    return std::move(writer.Bytes);
}

bool DecodeImage(std::span<const std::uint8_t> bytes, ItemImage& image) {
    if (bytes.empty() || bytes[0] < kFirstImageVersion || bytes[0] > kImageVersion) {
        return false;
    }
    Reader reader(bytes.subspan(1));
    ItemImage read;
    ReadItem(reader, read.Item);
    ReadExceptions(reader, bytes[0], read.Item.Exceptions);
    read.Source = reader.Number();
    read.HasInk = reader.Number() != 0;
    if (read.HasInk) {
        const auto ink = reader.Block();
        read.Item.Ink.assign(ink.begin(), ink.end());
    }
    for (std::size_t left = reader.Count(); left > 0 && reader.IsGood(); --left) {
        ReadTag(reader, read.Tags.emplace_back());
    }
    if (bytes[0] > kImageVersionWithoutCarried) {
        ReadCarried(reader, read.Item);
    }
    // The store's own rules hold for bytes from a file, too: arithmetic relies on them.
    if (!reader.IsGood() || !reader.AtEnd() || CheckAndDerive(read.Item) != SaveFault::None) {
        return false;
    }
    image = std::move(read);
    return true;
}

std::int64_t FingerprintOf(const StoredItem& item) {
    const bool isFloating = item.Zone.empty(); // else its times follow from the zone's and the device
    Writer writer;
    WriteItem(writer, item, {0, isFloating ? item.Start : 0, isFloating ? item.End : 0});
    WriteExceptions(writer, item.Exceptions, Origins::Left);
    writer.Block(item.Ink);
    if (CarriesLines(item)) {
        WriteCarried(writer, item);
    }
    return HashOf(writer.Bytes);
}

std::int64_t FingerprintOf(const StoredException& exception) {
    Writer writer;
    WriteExceptions(writer, {&exception, 1}, Origins::Left);
    if (!exception.Carried.empty()) {
        writer.Block(exception.Carried);
    }
    return HashOf(writer.Bytes);
}

} // namespace tavo::outlook
