// The store behind the device's store object.
#pragma once

#include "host/outlook/outlook_app.h"

namespace tavo::outlook {

// Null before Logon and after Logoff.
inline StorePtr StoreOf(IPOutlookApp& app) {
    return static_cast<OutlookApp&>(app).Source();
}

} // namespace tavo::outlook
