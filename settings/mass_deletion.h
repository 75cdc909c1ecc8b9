// Deleting whole classes of items, one after the other.
#pragma once

#include "memo/moving_memos.h"
#include "memo/undo_notes.h"
#include "store/change_group.h"
#include "store/long_work.h"
#include "store/program_state.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavo {

struct DeletionClasses {
    bool Alarms = false;
    bool Holidays = false;
    bool Anniversaries = false;
    bool Appointments = false; // those that stand in no category list
    bool Memos = false;
};

// All of it goes as one step that can be taken back: appointments in the store, memos in the device's Deleted folder.
// Until the last of them is gone nothing is final.
class MassDeletion : public ILongWork {
  public:
    // Finds out what there is to delete.
    MassDeletion(CProgramState& state, const DeletionClasses& classes);
    ~MassDeletion();
    MassDeletion(const MassDeletion&) = delete;
    MassDeletion& operator=(const MassDeletion&) = delete;

    int Total() const override { return TotalCount; }

    int Done() const override { return DoneCount; }

    // True when the store took no changes, or could not keep them: its items are all there still.
    bool IsRefused() const { return Refused; }

    // How many memos could not be brought back when it was cancelled or refused.
    int Missing() const { return MissingCount; }

    bool DoNext() override;
    bool TakeBackNext() override;
    void Abandon() override;
    std::u16string DescribeProgress() const override;

  private:
    void FindTagged(const DeletionClasses& classes);
    void FindAppointments();
    void CountInList(TagList list, std::u16string_view one, std::u16string_view many);
    void AddToName(int count, std::u16string_view one, std::u16string_view many);
    void Begin();
    bool IsTagged(Oid oid) const;
    void Refuse();
    bool DeleteNextAppointment();
    bool PutNextMemoAway();
    bool Commit();

    CProgramState& State;
    std::vector<TagList> Lists; // to be emptied, in the order of deletion
    std::vector<Oid> Tagged;
    ComPtr<IPOutlookItemCollection> Appointments; // of the whole folder; null when they stay
    std::vector<std::u16string> Memos;            // names
    MovingMemos Moving;
    std::vector<MemoPutAway> MemosAway; // not final yet
    std::u16string Name;                // of the step
    std::optional<ChangeGroup> Group;
    std::size_t NextTagged = 0;
    std::int32_t NextAppointment = 1; // in the collection, whose items move up as they go
    std::size_t NextMemo = 0;
    int TotalCount = 0;
    int DoneCount = 0;
    int MissingCount = 0;
    bool Refused = false;
};

} // namespace tavo
