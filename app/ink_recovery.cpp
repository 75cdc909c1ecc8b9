// The question, and what its answers do.
#include "app/ink_recovery.h"

#include "edit/draft_file.h"
#include "framework/format.h"
#include "memo/ink_return.h"
#include "res/strings.h"
#include "store/date_pictures.h"
#include "store/refusal.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace tavo {

namespace {

constexpr std::u16string_view kQuestion = u"A memo of %s was not saved. Keep it?";
constexpr std::u16string_view kNotKept = u"The memo could not be saved. You will be asked again.";

bool Ask(CProgramState& state, const SYSTEMTIME& day, int& answer) {
    const std::u16string date =
        state.Host().Locale().GetDateFormatW(LocaleId::User, day, kPictureListDate, kDateTimeBuffer).value_or(u"");
    MessageBoxDescription box;
    box.Text = FormatText(kQuestion, date);
    box.Caption = kProgramTitle;
    box.Buttons = MessageBoxButtons::YesNo;
    answer = state.Pump.ShowMessageBox(state.MainView, box);
    return answer == IDYES || answer == IDNO;
}

bool Keep(CProgramState& state, const InkHome& home, const RecoveredInk& ink) {
    if (ReturnInk(state, home, ink.WrittenOn, ink.Data) == InkReturn::Failed) {
        ShowRefusal(state.Pump, state.MainView, kNotKept);
        return false;
    }
    state.Host().Ink().EndRecovered(ink.Name, RecoveredInkEnd::Kept);
    return true;
}

} // namespace

bool OfferRecoveredInk(CProgramState& state) {
    bool kept = false;
    const std::vector<FoundDraft> drafts = FindDrafts(state.Host());
    for (const RecoveredInk& ink : state.Host().Ink().FindRecovered()) {
        const auto isOf = [&](const FoundDraft& draft) { return draft.Draft.Ink == ink.Name; };
        if (std::ranges::any_of(drafts, isOf)) {
            continue; // the question about the draft is about both
        }
        const InkHome home = DecodeInkHome(ink.Home).value_or(InkHome());
        if (IsHome(state, home, ink.Data)) {
            state.Host().Ink().EndRecovered(ink.Name, RecoveredInkEnd::Kept);
            continue;
        }
        int answer = 0;
        if (state.Pump.HasQuit() || !Ask(state, MomentOfInk(state, home, ink.WrittenOn), answer)) {
            break; // the program quits; the next start asks again
        }
        if (answer == IDYES) {
            kept = Keep(state, home, ink) || kept;
        } else {
            state.Host().Ink().EndRecovered(ink.Name, RecoveredInkEnd::Declined);
        }
    }
    state.Memo.Empty();
    return kept;
}

} // namespace tavo
