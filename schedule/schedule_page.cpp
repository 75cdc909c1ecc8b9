// The Schedule page: its title and the page bar.
#include "schedule/schedule_page.h"

#include "res/dialog_templates.h"
#include "res/resource_ids.h"

namespace tavo {

namespace {

constexpr Rect kTitleArea{40, 0, 220, 37};
constexpr Color kTitleColor = Color::FromRgb(0, 0, 0);
constexpr Color kBackground = Color::FromRgb(255, 255, 255);

} // namespace

CSchedulePage::CSchedulePage(CMessagePump& pump, CProgramState& state, IMainView& view)
    : CMainPage(pump, state, view, kSchedulePageTemplate, kMenuPage) {}

const MessageMap& CSchedulePage::Messages() {
    static const MessageMap map{{}, &CMainPage::Messages()};
    return map;
}

void CSchedulePage::Paint() {
    DropPainted();
    Surface().FillRect(Rect::Whole(kPageSurface), kBackground);
    Surface().DrawTextW(Form().Title, kTitleArea,
                        {State.Fonts.FontComic13Bold, kTitleColor, DT_SINGLELINE | DT_VCENTER});
    Declare({kTitleArea, PaintedRole::Header, std::u16string(Form().Title)});
    DrawPageBar();
    DeclarePageBar();
    PresentSurface();
}

} // namespace tavo
