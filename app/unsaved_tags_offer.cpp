// The question, and what its answers do.
#include "app/unsaved_tags_offer.h"

#include "framework/format.h"
#include "res/strings.h"
#include "store/category_file.h"
#include "store/unsaved_tags.h"

#include <cstddef>

namespace tavo {

namespace {

constexpr std::u16string_view kQuestion = u"The kind of %d item(s) could not be saved last time. Keep it?";

void TakeOver(CProgramState& state, const CategoryFileLists& tags) {
    for (std::size_t index = 0; index < tags.size(); ++index) {
        CategoryList& list = state.Categories.ListOf(static_cast<TagList>(index));
        const CategoryList::ReportOnce once(list);
        for (const Oid oid : tags[index]) {
            if (!list.Contains(oid)) { // somebody else may have tagged it while the question was there
                list.Append(oid);
            }
        }
    }
    if (SaveCategoryFile(state)) {
        DropSavedTags(state);
    }
}

} // namespace

bool OfferUnsavedTags(CProgramState& state) {
    const CategoryFileLists tags = FindUnsavedTags(state);
    const std::size_t count = tags[0].size() + tags[1].size() + tags[2].size();
    if (count == 0) {
        DropSavedTags(state);
        return false;
    }
    MessageBoxDescription box;
    box.Text = FormatText(kQuestion, count);
    box.Caption = kProgramTitle;
    box.Buttons = MessageBoxButtons::YesNo;
    switch (state.Pump.ShowMessageBox(state.MainView, box)) {
    case IDYES:
        TakeOver(state, tags);
        return true;
    case IDNO:
        DeclineUnsavedTags(state);
        return false;
    default:
        return false; // the program quits; the next start asks again
    }
}

} // namespace tavo
