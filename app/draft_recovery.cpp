// The question, and what its answers do.
#include "app/draft_recovery.h"

#include "edit/edit_mode.h"
#include "framework/format.h"
#include "res/strings.h"
#include "schedule/schedule_page.h"
#include "store/date_pictures.h"
#include "store/refusal.h"

#include <string_view>

namespace tavo {

namespace {

constexpr std::u16string_view kQuestion = u"%s of %s was not saved. Go on with it?";
constexpr std::u16string_view kNotReadable = u"The item cannot be read now. You will be asked again.";
constexpr std::u16string_view kKinds[] = {u"An alarm", u"A holiday", u"An anniversary", u"An appointment"};

int Ask(CProgramState& state, const AppointmentDraft& draft) {
    const std::u16string date = state.Host()
                                    .Locale()
                                    .GetDateFormatW(LocaleId::User, draft.Now.Start, kPictureListDate, kDateTimeBuffer)
                                    .value_or(u"");
    MessageBoxDescription box;
    box.Text = FormatText(kQuestion, kKinds[IndexOf(KindOfMode(draft.Mode))], date);
    box.Caption = kProgramTitle;
    box.Buttons = MessageBoxButtons::YesNo;
    return state.Pump.ShowMessageBox(state.MainView, box);
}

// The ink that was drawn for it goes with it.
void Decline(CProgramState& state, const FoundDraft& draft) {
    DeclineDraft(state.Host(), draft.Path);
    for (const RecoveredInk& ink : state.Host().Ink().FindRecovered()) {
        if (ink.Name == draft.Draft.Ink) {
            state.Host().Ink().EndRecovered(ink.Name, RecoveredInkEnd::Declined);
        }
    }
}

} // namespace

void OfferDrafts(CProgramState& state, CSchedulePage& editors) {
    for (const FoundDraft& draft : FindDrafts(state.Host())) {
        const int answer = Ask(state, draft.Draft);
        if (answer == IDYES) {
            if (!editors.ContinueEdit(draft)) {
                ShowRefusal(state.Pump, state.MainView, kNotReadable);
            }
        } else if (answer == IDNO) {
            Decline(state, draft);
        }
        if (state.Pump.HasQuit()) {
            break; // the next start asks again
        }
    }
}

} // namespace tavo
