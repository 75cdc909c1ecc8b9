// A main view that only notes what its page asks of it, on a scripted device with a store.
#pragma once

#include "host/headless/device.h"
#include "page/main_view.h"
#include "res/menus.h"
#include "store/program_state.h"
#include "tests/framework/plain_window.h"
#include "tests/support/test_device.h"

#include <string>
#include <vector>

namespace tavo::test {

class NotedView final : public IMainView {
  public:
    explicit NotedView(IHost& host) : Host(host) {}

    void ShowPage(PageNumber page) override { Note("show", static_cast<int>(page)); }

    void ClosePages() override { Calls.emplace_back("close"); }

    void PostChangeNotice() override { Calls.emplace_back("notice"); }

    WindowHandle CreatePageMenuBar(WindowHandle page, int menuId) override {
        Note("menu", menuId);
        return Host.Menus().SHCreateMenuBar(page, LoadMenuW(menuId));
    }

    void RouteCommand(int command) override { Note("command", command); }

    std::vector<std::string> Calls;

  private:
    void Note(const std::string& word, int number) { Calls.push_back(word + " " + std::to_string(number)); }

    IHost& Host;
};

// What every page of these tests lies on. The store is open.
class ViewDesk : public OwnDevice, public StoreWords {
  public:
    ViewDesk() : OwnDevice(WithStore()), StoreWords(Device.Host()) {
        Frame.Make();
        State.MainView = Frame.Handle();
        State.Store.OpenStore();
    }

    // Lets the program handle the script so far.
    bool Settle() { return Device.Finish(Pump); }

    CMessagePump Pump{Device.Host()};
    CProgramState State{Pump};
    PlainWindow Frame{Pump};
    NotedView View{Device.Host()};
};

} // namespace tavo::test
