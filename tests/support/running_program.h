// The whole program on a scripted device with a real store, as tests start it, work it and look at it.
#pragma once

#include "app/tavo_app.h"
#include "host/headless/device.h"
#include "store/page_number.h"
#include "tests/support/test_device.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavo::test {

class RunningProgram : public OwnDevice, public StoreWords {
  public:
    // The device's clock stands at `now`; the program is not started yet.
    explicit RunningProgram(const SYSTEMTIME& now = At(2004, 11, 3, 17, 10),
                            headless::DeviceOptions options = WithStore());
    ~RunningProgram();

    // Files of the data folder.
    std::filesystem::path DataFolder() const { return Root / "My Documents" / "TavoCalendar"; }

    void WriteFile(std::string_view name, std::string_view bytes);
    std::optional<std::string> ReadFile(std::string_view name) const;

    // Starts the program and lets it come to rest. False when it ended at once.
    bool Start();

    // Lets the program handle the script so far; false when it quit or a step could not be done.
    bool Settle() { return Device.Finish(App->MessagePump()); }

    // Ends the program as the process's end would.
    void Stop();

    // Starts the program on a store none of whose items can be read now, lets it come to rest, and stops it.
    void RunWithItemsLocked();

    // A tap on the page bar, and coming to rest.
    void ShowPage(int tab);

    void ShowPage(PageNumber page) { ShowPage(static_cast<int>(page)); }

    // A tap on the page. The menu that it may open is closed again.
    void TapAside(int x, int y);

    CProgramState& State() { return App->ProgramState(); }

    // What a person sees on the month page.
    std::u16string Header() const;
    std::u16string CellName(int row, int column) const; // with the kinds marked in it
    int SelectedCell() const;                           // row * 7 + column, -1 for none
    // The number that is to be seen in a cell, with its colour; the text is empty when there is none.
    headless::Placed NumberIn(int row, int column) const;

    std::unique_ptr<CTavoApp> App;
    CalendarFiles Exchange; // for the next start

  private:
    std::filesystem::path Root;
};

} // namespace tavo::test
