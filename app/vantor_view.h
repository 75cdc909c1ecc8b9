// The main view: owns the store connection's life, the four pages, and the change notices between them.
#pragma once

#include "app/ink_note_editor.h"
#include "calendar/calendar_page.h"
#include "calendar/clock_page.h"
#include "framework/painted_window.h"
#include "page/main_view.h"
#include "platform/file_dialogs.h"
#include "schedule/schedule_page.h"
#include "settings/settings_page.h"
#include "store/category_file.h"
#include "store/program_state.h"
#include "store/unsaved_tags.h"

#include <memory>
#include <optional>

namespace tavo {

// What takes the commands that belong to the program as a whole.
class ICommandTarget {
  public:
    virtual void TakeCommand(int command) = 0;
    // Calendar files were opened with the program.
    virtual void ImportFiles() = 0;
    // A file for an export was chosen.
    virtual void WriteFile(WrittenFile what) = 0;

  protected:
    ~ICommandTarget() = default;
};

class CVantorView : public CPaintedWindow, public IMainView {
  public:
    CVantorView(CMessagePump& pump, CProgramState& state, ICommandTarget& commands);
    ~CVantorView() override;

    // Makes the view inside the frame.
    bool OpenIn(WindowHandle frame);
    // Opens the store, reads the data file and makes the pages; a failing store leaves the view empty.
    void UpdateFirst();
    // What closing a page does; nothing when there are no pages.
    void SaveAndHide(SaveTrouble trouble);
    // Opens the editor on a new item of this kind, on the Calendar page beginning on the selected day; nothing when
    // there are no pages.
    void MakeItem(ItemKind kind);
    // Opens the view on this item; nothing when it is gone or there are no pages.
    void OpenItem(Oid oid);
    // Shows the Calendar page with this day selected; nothing when there are no pages.
    void ShowDay(const SYSTEMTIME& day);
    // The day that the Calendar page has selected where that is on show, else today.
    SYSTEMTIME ShownDay();
    // Another process changed items or asked for tags.
    void TakeOutsideChange();

    void ShowPage(PageNumber page) override;
    void ClosePages() override;
    void PostChangeNotice() override;
    WindowHandle CreatePageMenuBar(WindowHandle page, int menuId) override;
    void RouteCommand(int command) override;

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

  protected:
    void Paint() override;

    void RepaintAll() override {}

  private:
    void CreatePages();
    // On the Calendar page; nothing where there is no such day.
    std::optional<SYSTEMTIME> SelectedDay();
    void OfferWhatWasLeft();
    bool IsFirstStart();
    template <class Page> std::unique_ptr<Page> MakePage();
    void HidePages();
    void TakeChangeNotice();
    void RefreshPages();
    void NameReminderSound();
    void WorkOn();
    void EndProcess();

    CProgramState& State;
    ICommandTarget& Commands;
    InkNoteEditor InkNotes;
    TagKeeper Tags;
    WindowHandle Frame = WindowHandle::None;
    std::unique_ptr<CSettingsPage> SettingsPage;
    std::unique_ptr<CSchedulePage> SchedulePage;
    std::unique_ptr<CCalendarPage> CalendarPage;
    std::unique_ptr<CClockPage> ClockPage;
};

} // namespace tavo
