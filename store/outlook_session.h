// The program's single door to the appointment store.
#pragma once

#include "framework/message_pump.h"
#include "platform/outlook.h"
#include "store/appointment_data.h"

#include <string_view>

namespace tavo {

class OutlookSession {
  public:
    explicit OutlookSession(CMessagePump& pump) : Pump(pump) {}

    OutlookSession(const OutlookSession&) = delete;
    OutlookSession& operator=(const OutlookSession&) = delete;

    // Connects, logs on and fetches the calendar folder. On failure shows a message box and gives false.
    bool OpenStore();
    // Lets go of the folder, logs off, lets go of the store and ends the use of COM.
    void CloseStore();

    // Copies the appointment into the record and gives its OID. Gives 0 and leaves the record alone when it cannot be
    // had: with NotFound in LastStoreResult it is gone for good.
    Oid LoadAppointment(Oid oid, AppointmentData& record);
    // A missing appointment is ignored, and so is OID 0.
    void DeleteAppointment(Oid oid);
    // All items of the calendar folder, a series counted once; 0 on failure.
    std::int32_t CountAppointments();
    // The items that satisfy the restriction, one for each occurrence, ready to be walked with Item(1), Item(2), ...
    // Null when there are none or the query failed (LastStoreResult tells).
    ComPtr<IPOutlookItemCollection> QueryAppointments(std::u16string_view restriction);

    // The store's mirror of the category lists; null before the store was connected to. One that is not logged on takes
    // and gives nothing.
    ITagMirror* Tags() const { return OutlookApp ? &OutlookApp->Tags() : nullptr; }

    ComPtr<IPOutlookApp> OutlookApp;
    ComPtr<IFolder> CalendarFolder;
    Status LastStoreResult = Status::Ok; // of the last store call

  private:
    bool Connect();
    // All items of the calendar folder; null on failure.
    ComPtr<IPOutlookItemCollection> GetItems();

    CMessagePump& Pump;
};

// While one lives all that is read is of one moment, and many items cost less. Not to be held while waiting.
class StoreReading {
  public:
    explicit StoreReading(OutlookSession& store);
    ~StoreReading();
    StoreReading(const StoreReading&) = delete;
    StoreReading& operator=(const StoreReading&) = delete;

  private:
    ComPtr<IPOutlookApp> Reader; // null when there is nothing to end
};

} // namespace tavo
