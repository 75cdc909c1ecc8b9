// Beginning and ending a group.
#include "store/change_group.h"

#include <utility>

namespace tavo {

ChangeGroup::ChangeGroup(OutlookSession& store, std::u16string_view name) : Store(store) {
    Store.LastStoreResult = Store.OutlookApp ? Store.OutlookApp->Begin(name) : Status::Unexpected;
    Open = Succeeded(Store.LastStoreResult);
}

ChangeGroup::~ChangeGroup() {
    if (Open && Store.OutlookApp) {
        static_cast<void>(Store.OutlookApp->Abandon()); // a group that broke is gone by itself
    }
}

bool ChangeGroup::End() {
    if (!std::exchange(Open, false)) {
        return false;
    }
    Store.LastStoreResult = Store.OutlookApp ? Store.OutlookApp->End() : Status::Unexpected;
    return Succeeded(Store.LastStoreResult);
}

} // namespace tavo
