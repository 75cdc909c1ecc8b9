// A head, then records one after another: the whole page, strokes added to it, the stroke being drawn.
#include "host/ink/recovery_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace tavo::ink {
namespace {

constexpr std::array<std::uint8_t, 4> kSignature{0xF7, 'T', 'I', 'R'};
constexpr std::uint8_t kVersionWithoutHome = 1;
constexpr std::uint8_t kVersion = 2;
constexpr std::size_t kHeadSize = kSignature.size() + 1 + 7; // version, the moment it was begun
constexpr std::size_t kHomeLength = 2;
constexpr std::size_t kLargestHome = 0xFFFF;
constexpr std::size_t kRecordHead = 5; // kind, length
constexpr int kPage = 1;
constexpr int kAdded = 2;
constexpr int kLive = 3; // replaces the one before; without bytes there is none any more
constexpr std::uint64_t kRoomForNews = 8U << 20;
constexpr int kMaxNames = 1000;

void PutNumber(std::vector<std::uint8_t>& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

std::uint32_t GetNumber(std::span<const std::uint8_t> bytes, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
        value = value << 8 | bytes[i];
    }
    return value;
}

std::vector<std::uint8_t> MakeHead(const SYSTEMTIME& begun, std::span<const std::uint8_t> home) {
    std::vector<std::uint8_t> head(kSignature.begin(), kSignature.end());
    head.push_back(kVersion);
    PutNumber(head, begun.Year, 2);
    for (const std::uint16_t part : {begun.Month, begun.Day, begun.Hour, begun.Minute, begun.Second}) {
        PutNumber(head, part, 1);
    }
    home = home.first(std::min(home.size(), kLargestHome));
    PutNumber(head, static_cast<std::uint32_t>(home.size()), kHomeLength);
    head.insert(head.end(), home.begin(), home.end());
    return head;
}

std::string NameFor(const SYSTEMTIME& begun, int number) {
    std::array<char, 64> name{};
    std::snprintf(name.data(), name.size(), "%04d%02d%02d_%02d%02d%02d_%d.ink", begun.Year, begun.Month, begun.Day,
                  begun.Hour, begun.Minute, begun.Second, number);
    return name.data();
}

} // namespace

RecoveryFile::~RecoveryFile() {
    if (!OwnPath.empty() && !IsLeft) {
        static_cast<void>(Disk.Remove(OwnPath)); // what cannot go will be found as if a crash had left it
    }
}

// A file of its own name, with the head alone. What was there before stays open and in place until then.
bool RecoveryFile::MakeFile() {
    if (const ErrorCode error = Disk.MakeFolder(Folder);
        error != ErrorCode::Success && error != ErrorCode::AlreadyExists) {
        return false;
    }
    for (int number = 1; number < kMaxNames; ++number) {
        const std::string path = Folder + "/" + NameFor(Begun, number);
        std::unique_ptr<disk::IHeldFile> made;
        const ErrorCode error = Disk.MakeHeld(path, made);
        if (error == ErrorCode::AlreadyExists || error == ErrorCode::LockViolation) {
            continue;
        }
        if (error != ErrorCode::Success) {
            return false;
        }
        const std::vector<std::uint8_t> head = MakeHead(Begun, Home);
        if (made->Append(head) != ErrorCode::Success) {
            static_cast<void>(Disk.Remove(path)); // nobody would know to whom it belongs
            return false;
        }
        File = std::move(made);
        OwnPath = path;
        Size = head.size();
        return true;
    }
    return false;
}

bool RecoveryFile::Append(int kind, std::span<const std::uint8_t> bytes) {
    std::vector<std::uint8_t> record;
    record.reserve(bytes.size() + kRecordHead);
    PutNumber(record, static_cast<std::uint32_t>(kind), 1);
    PutNumber(record, static_cast<std::uint32_t>(bytes.size()), 4);
    record.insert(record.end(), bytes.begin(), bytes.end());
    if (File->Append(record) != ErrorCode::Success) {
        IsBroken = File->CutTo(Size) != ErrorCode::Success; // half a record hides what comes behind it
        WrittenReshapes.reset();
        return false;
    }
    Size += record.size();
    return true;
}

// A file that has grown too much is written anew beside the old one, which lasts until the new one is written and is
// taken up again when that cannot be.
bool RecoveryFile::WritePage(std::span<const std::uint8_t> page) {
    if (File && !IsBroken && Size <= kRoomForNews + 4 * page.size()) {
        return Append(kPage, page);
    }
    std::unique_ptr<disk::IHeldFile> oldFile = std::move(File);
    const std::string oldPath = OwnPath;
    const std::uint64_t oldSize = Size;
    const bool wasBroken = std::exchange(IsBroken, false);
    const bool isMade = MakeFile();
    if (isMade && Append(kPage, page)) {
        if (oldFile) {
            static_cast<void>(Disk.Remove(oldPath)); // what cannot go will be found as if a crash had left it
        }
        return true;
    }
    if (isMade) {
        static_cast<void>(Disk.Remove(OwnPath)); // the old file has all that can be had
    }
    File = std::move(oldFile);
    OwnPath = File ? oldPath : std::string();
    Size = oldSize;
    IsBroken = wasBroken;
    return false;
}

bool RecoveryFile::WriteWhole(std::span<const std::uint8_t> ink) {
    WrittenReshapes.reset();
    return WritePage(ink);
}

bool RecoveryFile::WriteNews(const InkControl& control) {
    const std::span<const PlacedStroke> strokes = control.Ink().Strokes();
    if (strokes.size() > WrittenStrokes) {
        if (!Append(kAdded, Encode(strokes.subspan(WrittenStrokes)))) {
            return false;
        }
        WrittenStrokes = strokes.size();
        HasLive = false;
    }
    const Stroke* live = control.LiveStroke();
    if (live != nullptr) {
        HasLive = true;
        return Append(kLive, Encode(std::vector{Place(*live)}));
    }
    return !std::exchange(HasLive, false) || Append(kLive, {});
}

bool RecoveryFile::Write(const InkControl& control) {
    if (control.Revision() == WrittenRevision) {
        return true;
    }
    const bool isKnown = WrittenReshapes == control.Reshapes() && !IsBroken && Size < (kRoomForNews << 3);
    if (!isKnown) {
        if (!WritePage(Encode(control.Ink().Strokes()))) {
            return false;
        }
        WrittenReshapes = control.Reshapes();
        WrittenStrokes = control.Ink().Strokes().size();
        HasLive = false;
    }
    if (!WriteNews(control)) {
        return false;
    }
    WrittenRevision = control.Revision();
    return true;
}

std::optional<RecoveryContents> ReadRecovery(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kHeadSize || !std::equal(kSignature.begin(), kSignature.end(), bytes.begin())) {
        return std::nullopt;
    }
    const std::uint8_t version = bytes[kSignature.size()];
    if (version != kVersionWithoutHome && version != kVersion) {
        return std::nullopt;
    }
    RecoveryContents contents;
    const std::span<const std::uint8_t> moment = bytes.subspan(kSignature.size() + 1);
    contents.Begun.Year = static_cast<std::uint16_t>(GetNumber(moment, 2));
    contents.Begun.Month = moment[2];
    contents.Begun.Day = moment[3];
    contents.Begun.Hour = moment[4];
    contents.Begun.Minute = moment[5];
    contents.Begun.Second = moment[6];
    bytes = bytes.subspan(kHeadSize);
    if (version == kVersion) {
        const std::size_t length = bytes.size() < kHomeLength ? 0 : GetNumber(bytes, kHomeLength);
        if (bytes.size() < kHomeLength + length) {
            return contents; // cut before anything was drawn
        }
        const std::span<const std::uint8_t> home = bytes.subspan(kHomeLength, length);
        contents.Home.assign(home.begin(), home.end());
        bytes = bytes.subspan(kHomeLength + length);
    }
    std::vector<PlacedStroke> all;
    std::vector<PlacedStroke> live;
    while (bytes.size() >= kRecordHead) {
        const int kind = bytes[0];
        const std::size_t length = GetNumber(bytes.subspan(1), 4);
        std::vector<PlacedStroke> strokes;
        if (length > bytes.size() - kRecordHead || kind < kPage || kind > kLive ||
            Decode(bytes.subspan(kRecordHead, length), strokes) != Reading::Whole) {
            break;
        }
        if (kind == kPage) {
            all.clear();
        }
        live.clear();
        std::vector<PlacedStroke>& into = kind == kLive ? live : all;
        into.insert(into.end(), strokes.begin(), strokes.end());
        bytes = bytes.subspan(kRecordHead + length);
    }
    all.insert(all.end(), live.begin(), live.end());
    contents.Ink = Encode(all);
    return contents;
}

} // namespace tavo::ink
