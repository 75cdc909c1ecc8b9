// What a search has found so far, in order of the starts.
#pragma once

#include "page/row_list.h"
#include "platform/outlook.h"

#include <vector>

namespace tavo {

class IFoundListOwner {
  public:
    virtual void OnRowTapped() = 0; // it is the selected one then
    virtual void OnListScrolled() = 0;

  protected:
    ~IFoundListOwner() = default;
};

class CFoundList : public CRowList {
  public:
    CFoundList(CMessagePump& pump, CProgramState& state, IFoundListOwner& owner);

    static const MessageMap& Messages();

    const MessageMap& GetMessageMap() const override { return Messages(); }

    // So many rows are shown at the most.
    static constexpr int kMostRows = 500;
    static constexpr int kVisibleRows = 5;
    static constexpr Size kExtent{240, 205};

    void Clear();
    // Until the selection is moved it is on the first row from `today` on, or on the last one.
    void Add(const FoundItem& item, DATE today);
    // False for keys that move nothing.
    bool MoveSelection(int key);
    void SetTop(int row);

    // Null when nothing is found.
    const AppointmentData* GetSelected() const;

  protected:
    void PaintRow(int row, const Rect& area) override;

  private:
    void TakeStylusDown(Point point);
    void TakeWheel(const Message& wheel);
    void ShowSelected();
    std::u16string DescribeWhen(const AppointmentData& record);

    IFoundListOwner& Owner;
    std::vector<DATE> Starts; // of the rows
    int SelectedRow = 0;
    bool IsMoved = false; // the selection, by a person
};

} // namespace tavo
