// The questions, the work and its outcome, file by file.
#include "app/file_import.h"

#include "app/file_work.h"
#include "framework/format.h"
#include "store/refusal.h"

#include <string>
#include <string_view>

namespace tavo {

namespace {

constexpr std::u16string_view kCaption = u"Import";
constexpr std::u16string_view kQuestionOfOne = u"Import one entry from %s?";
constexpr std::u16string_view kQuestion = u"Import %d entries from %s?";
constexpr std::u16string_view kNothingThere = u"In %s there is nothing to import.";
constexpr std::u16string_view kNotImported = u"%s: %s. Nothing of it was imported.";
constexpr std::u16string_view kImported = u"%s: %s";
constexpr std::u16string_view kLookProgress = u"%d%% looked at";
constexpr std::u16string_view kImportProgress = u"%d%% imported";
enum class Pass { Look, Import };

// One time through a file. False when it was cancelled.
bool GoThrough(CProgramState& state, ICalendarImport& file, Pass pass) {
    FileSteps steps;
    steps.Caption = kCaption;
    steps.ProgressFormat = pass == Pass::Look ? kLookProgress : kImportProgress;
    steps.DoNext = [&file, pass] { return pass == Pass::Look ? file.LookOn() : file.ImportOn(); };
    steps.Leave = [&file] { file.Leave(); };
    steps.Progress = [&file] { return file.Progress(); };
    return RunFileSteps(state, steps);
}

bool IsWanted(CProgramState& state, const std::u16string& name, int entries) {
    std::u16string question = entries == 1 ? FormatText(kQuestionOfOne, name) : FormatText(kQuestion, entries, name);
    return ShowFileBox(state, std::move(question), MessageBoxButtons::YesNo) == IDYES;
}

// True when the file can be worked on.
bool IsGood(CProgramState& state, const ICalendarImport& file, const std::u16string& name) {
    const std::u16string problem = file.Problem();
    if (!problem.empty()) {
        ShowRefusal(state.Pump, state.MainView, FormatText(kNotImported, name, problem));
    }
    return problem.empty();
}

// True when the store may have changed.
bool ImportFile(CProgramState& state, ICalendarImport& file, const std::u16string& name) {
    if (!IsGood(state, file, name) || !GoThrough(state, file, Pass::Look) || !IsGood(state, file, name)) {
        return false;
    }
    const int entries = file.CountEntries();
    if (entries == 0) {
        ShowRefusal(state.Pump, state.MainView, FormatText(kNothingThere, name));
        return false;
    }
    if (!IsWanted(state, name, entries)) {
        return false;
    }
    const bool isThrough = GoThrough(state, file, Pass::Import);
    static_cast<void>(state.Categories.ApplyTagRequests()); // those from outside waited; the pages are told anyway
    if (isThrough && IsGood(state, file, name)) {
        ShowFileBox(state, FormatText(kImported, name, file.Outcome()), MessageBoxButtons::Ok);
    }
    return true;
}

} // namespace

bool ImportCalendarFiles(CProgramState& state, ICalendarImport& files) {
    bool hasChanged = false;
    while (!state.Pump.HasQuit()) {
        const std::optional<std::u16string> name = files.NextFile();
        if (!name) {
            break;
        }
        hasChanged = ImportFile(state, files, *name) || hasChanged;
    }
    files.Leave();
    return hasChanged;
}

} // namespace tavo
