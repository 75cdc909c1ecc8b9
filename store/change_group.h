// Several changes of the store as one step that can be taken back.
#pragma once

#include "store/outlook_session.h"

#include <string_view>

namespace tavo {

// Everything from building it to End is one transaction. Destroyed without End, all of it is taken back.
class ChangeGroup {
  public:
    // `name` says for people what the step does: "delete of 14 alarms".
    ChangeGroup(OutlookSession& store, std::u16string_view name);
    ~ChangeGroup();
    ChangeGroup(const ChangeGroup&) = delete;
    ChangeGroup& operator=(const ChangeGroup&) = delete;

    // False when the store takes no changes now: nothing may be changed then.
    bool IsOpen() const { return Open; }

    // False when the store could not keep the changes: it is as it was before.
    bool End();

  private:
    OutlookSession& Store;
    bool Open = false;
};

} // namespace tavo
