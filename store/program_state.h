// Everything that exists once in the program, in one place.
#pragma once

#include "framework/message_pump.h"
#include "platform/device_paths.h"
#include "store/category_lists.h"
#include "store/memo_buffer.h"
#include "store/outlook_session.h"
#include "store/page_number.h"
#include "store/shared_fonts.h"
#include "store/sliced_work.h"

#include <array>
#include <string>

namespace tavo {

// Built by the start-up and by each test.
struct CProgramState {
    explicit CProgramState(CMessagePump& pump)
        : Pump(pump), Store(pump), Categories(Store), Fonts(pump.Host().Drawing()) {}

    CProgramState(const CProgramState&) = delete;
    CProgramState& operator=(const CProgramState&) = delete;

    IHost& Host() const { return Pump.Host(); }

    // Gives February the length it has in this year.
    void SetFebruary(int year);

    CMessagePump& Pump;
    OutlookSession Store;
    CategoryLists Categories;
    SharedFonts Fonts;
    MemoBuffer Memo;

    WindowHandle MainView = WindowHandle::None; // owner of messages that no page shows
    PageNumber CurrentPage = PageNumber::Clock; // on show
    bool RefreshSuppressed = false;             // change notices are ignored while it is set
    ISlicedWork* Work = nullptr;                // long work under way, driven by the main view's timer; null for none
    bool CanChooseFiles = false;                // the machine has dialogs for it
    bool Busy = false;                          // a mass deletion is running
    bool ShowsFirstHint = false;                // the calendar is empty, and this is its first start

    std::array<int, 12> DaysInMonth{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

    std::u16string DataFolder{kDataFolder};
    std::u16string DataFileName{kCategoryFileName};
    // The data file is there but could not be read: its tags are not known, so nothing may take its place.
    bool IsDataFileUnread = false;
};

constexpr bool IsLeapYear(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

} // namespace tavo
