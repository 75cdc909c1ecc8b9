// Writing the memo, and what the person is told when that fails.
#include "memo/memo_file_keeper.h"

#include "store/refusal.h"

#include <string_view>

namespace tavo {

namespace {
constexpr std::u16string_view kNotSaved = u"The memo could not be saved. It is still open.";
}

InkHome MemoFileKeeper::Home() const {
    InkHome home;
    home.Memo = Path;
    home.Day.Year = static_cast<std::uint16_t>(Year);
    home.Day.Month = static_cast<std::uint16_t>(Month);
    home.Day.Day = static_cast<std::uint16_t>(Day);
    return home;
}

bool MemoFileKeeper::KeepMemoAtQuit() {
    MemoFiles files(State);
    return files.WriteMemo(Path.empty() ? files.NewMemoPath(Year, Month, Day) : Path);
}

bool MemoFileKeeper::KeepMemo(WindowHandle editor) {
    if (KeepMemoAtQuit()) {
        return true;
    }
    ShowRefusal(State.Pump, editor, kNotSaved);
    return false;
}

} // namespace tavo
