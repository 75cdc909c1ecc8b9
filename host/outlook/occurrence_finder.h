// One day of a series, by that day.
#pragma once

#include "host/outlook/store.h"

namespace tavo::outlook {

// The first occurrence of the series that takes place on the day. NotFound when there is none; InvalidArgument for an
// item that does not recur.
Status FindOccurrence(const StorePtr& store, Oid oid, DayNumber day, ComPtr<IAppointment>& occurrence);

} // namespace tavo::outlook
