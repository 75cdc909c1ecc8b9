// The question, the work and its outcome.
#include "app/file_export.h"

#include "app/file_work.h"
#include "framework/format.h"
#include "store/refusal.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavo {

namespace {

constexpr std::u16string_view kQuestion = u"Export to %s?\n%s";
constexpr std::u16string_view kNotExported = u"%s: %s. Nothing was written.";

struct Words {
    std::u16string_view Caption;
    std::u16string_view Progress; // of a number of hundredths
    std::u16string_view Done;     // of a name and a number
    std::u16string_view DoneOne;  // of a name
};

constexpr Words WordsOf(WrittenFile what) {
    constexpr std::u16string_view written = u"%s: %d entries were written.";
    constexpr std::u16string_view writtenOne = u"%s: one entry was written.";
    switch (what) {
    case WrittenFile::Backup:
        return {u"Backup", u"%d%% saved", written, writtenOne};
    case WrittenFile::Print:
        return {u"Print", u"%d%% printed", u"%s: %d pages were printed.", u"%s: one page was printed."};
    default:
        return {u"Export", u"%d%% exported", written, writtenOne};
    }
}

// True when the file can be worked on.
bool IsGood(CProgramState& state, const ICalendarExport& file, const std::u16string& name) {
    const std::u16string problem = file.Problem();
    if (!problem.empty()) {
        ShowRefusal(state.Pump, state.MainView, FormatText(kNotExported, name, problem));
    }
    return problem.empty();
}

// Where all can be said nobody has to be asked.
bool IsWanted(CProgramState& state, const ICalendarExport& file, const std::u16string& name) {
    const std::u16string unsaid = file.Unsaid();
    return unsaid.empty() || ShowFileBox(state, FormatText(kQuestion, name, unsaid), MessageBoxButtons::YesNo) == IDYES;
}

bool GoThrough(CProgramState& state, ICalendarExport& file, const Words& words) {
    FileSteps steps;
    steps.Caption = words.Caption;
    steps.ProgressFormat = words.Progress;
    steps.DoNext = [&file] { return file.ExportOn(); };
    steps.Leave = [&file] { file.Leave(); };
    steps.Progress = [&file] { return file.Progress(); };
    return RunFileSteps(state, steps);
}

} // namespace

void ExportCalendarFile(CProgramState& state, ICalendarExport& file, WrittenFile what) {
    const Words words = WordsOf(what);
    const std::optional<std::u16string> name = file.NextFile();
    if (!name) {
        return;
    }
    if (IsGood(state, file, *name) && IsWanted(state, file, *name) && GoThrough(state, file, words) &&
        IsGood(state, file, *name)) {
        const int items = file.CountItems();
        ShowFileBox(state, items == 1 ? FormatText(words.DoneOne, *name) : FormatText(words.Done, *name, items),
                    MessageBoxButtons::Ok);
    }
    file.Leave();
}

} // namespace tavo
