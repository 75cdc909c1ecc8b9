// What the edit dialog tells its opener, which lies above it.
#pragma once

#include "store/appointment_data.h"

namespace tavo {

class IListOwner {
  public:
    // An item was saved: `oid` is its OID, `record` what was saved.
    virtual void UpdateOwnerList(const AppointmentData& record, bool isNew, Oid oid) = 0;

  protected:
    ~IListOwner() = default;
};

} // namespace tavo
