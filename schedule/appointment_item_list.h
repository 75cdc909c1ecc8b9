// The list of the appointments of a period.
#pragma once

#include "schedule/item_list.h"

namespace tavo {

class CAppointmentItemList : public CItemList {
  public:
    CAppointmentItemList(CMessagePump& pump, CProgramState& state, IItemListOwner& owner);

    // A row for each occurrence that lies in the period or reaches into it, by days and in order of start; rows have
    // the times of their occurrence, and the rest from the stored item. Nothing is selected then. False when the store
    // could not give all of them.
    bool Fill(const SYSTEMTIME& periodStart, const SYSTEMTIME& periodEnd);
    // The list is filled for the same period afterwards.
    bool DeleteSelected() override;

  protected:
    ItemRowText Describe(const AppointmentData& record) override;
    std::vector<MenuItem> MakeMenu(const AppointmentData& record) override;

  private:
    ComPtr<IPOutlookItemCollection> QueryPeriod();
    bool OccursInPeriod(const AppointmentData& record) const;
    std::u16string ShortDate(const SYSTEMTIME& date) const;

    SYSTEMTIME PeriodStart;
    SYSTEMTIME PeriodEnd;
};

} // namespace tavo
