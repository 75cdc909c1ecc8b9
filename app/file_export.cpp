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
constexpr std::u16string_view kExported = u"%s: %d entries were written.";
constexpr std::u16string_view kExportedOne = u"%s: one entry was written.";

struct Words {
    std::u16string_view Caption;
    std::u16string_view Progress;
};

constexpr Words WordsOf(WrittenFile what) {
    return what == WrittenFile::Backup ? Words{u"Backup", u"%d%% saved"} : Words{u"Export", u"%d%% exported"};
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
    const std::optional<std::u16string> name = file.NextFile();
    if (!name) {
        return;
    }
    if (IsGood(state, file, *name) && IsWanted(state, file, *name) && GoThrough(state, file, WordsOf(what)) &&
        IsGood(state, file, *name)) {
        const int items = file.CountItems();
        ShowFileBox(state, items == 1 ? FormatText(kExportedOne, *name) : FormatText(kExported, *name, items),
                    MessageBoxButtons::Ok);
    }
    file.Leave();
}

} // namespace tavo
