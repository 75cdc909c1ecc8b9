// The three places for ink: its memo file, its item's note, a new memo.
#include "memo/ink_return.h"

#include "memo/memo_files.h"

#include <algorithm>
#include <utility>

namespace tavo {

namespace {

InkReturn Result(bool isDone, InkReturn where) {
    return isDone ? where : InkReturn::Failed;
}

InkReturn ReturnToMemo(CProgramState& state, const InkHome& home, std::vector<std::uint8_t> ink) {
    MemoFiles files(state);
    const bool isThere = files.IsMemo(home.Memo);
    const bool isRead = isThere && files.ReadMemo(home.Memo);
    if (isRead && std::ranges::equal(state.Memo.Bytes(), ink)) {
        return InkReturn::Home;
    }
    const bool isUnchanged = isRead && FingerprintOf(state.Memo.Bytes()) == home.Before;
    state.Memo.Fill(std::move(ink));
    if (isUnchanged || !isThere) {
        return Result(files.WriteMemo(home.Memo), isThere ? InkReturn::Home : InkReturn::AsMemo);
    }
    return Result(files.WriteMemo(files.FreePathBeside(home.Memo)), InkReturn::AsMemo);
}

// The item with its note; null when they cannot be had.
ComPtr<IAppointment> ReadNote(CProgramState& state, Oid oid, std::vector<std::uint8_t>& note) {
    ComPtr<IAppointment> item;
    const bool isRead = state.Store.OutlookApp && Succeeded(state.Store.OutlookApp->GetItemFromOid(oid, item)) &&
                        item && Succeeded(item->get_BodyInk(note));
    return isRead ? item : ComPtr<IAppointment>();
}

// False when the item is gone, was changed meanwhile, or does not take it.
bool ReturnToItem(CProgramState& state, const InkHome& home, const std::vector<std::uint8_t>& ink) {
    std::vector<std::uint8_t> note;
    const ComPtr<IAppointment> item = ReadNote(state, home.Item, note);
    return item && FingerprintOf(note) == home.Before && Succeeded(item->put_BodyInk(ink)) && Succeeded(item->Save());
}

} // namespace

// The time of day at which it was begun, on the day to which it belongs.
SYSTEMTIME MomentOfInk(CProgramState& state, const InkHome& home, const SYSTEMTIME& begun) {
    SYSTEMTIME moment = begun;
    moment.Year = home.Day.Year;
    moment.Month = home.Day.Month;
    moment.Day = home.Day.Day;
    DATE date = kNoDate;
    return home.Day.Year != 0 && state.Host().Locale().SystemTimeToVariantTime(moment, date) ? moment : begun;
}

bool IsHome(CProgramState& state, const InkHome& home, const std::vector<std::uint8_t>& ink) {
    if (!home.Memo.empty()) {
        return MemoFiles(state).ReadMemo(home.Memo) && std::ranges::equal(state.Memo.Bytes(), ink);
    }
    std::vector<std::uint8_t> note;
    return home.Item != 0 && static_cast<bool>(ReadNote(state, home.Item, note)) && note == ink;
}

InkReturn ReturnInk(CProgramState& state, const InkHome& home, const SYSTEMTIME& begun, std::vector<std::uint8_t> ink) {
    if (!home.Memo.empty()) {
        return ReturnToMemo(state, home, std::move(ink));
    }
    if (home.Item != 0 && ReturnToItem(state, home, ink)) {
        return InkReturn::Home;
    }
    MemoFiles files(state);
    state.Memo.Fill(std::move(ink));
    return Result(files.WriteMemo(files.FreeMemoPath(MomentOfInk(state, home, begun))), InkReturn::AsMemo);
}

} // namespace tavo
