// A store connection that notes what is asked of it, and fails where a test wants it to.
#pragma once

#include "platform/outlook.h"

#include <string>
#include <utility>
#include <vector>

namespace tavo::test {

// Notes every report as a word; answers the requests it was given.
class TagMirrorProbe final : public ITagMirror {
  public:
    Status ReplaceList(TagList list, std::span<const Oid> oids) override {
        std::string text = "replace " + NameOf(list);
        for (const Oid oid : oids) {
            text += ' ' + std::to_string(oid);
        }
        Reports.push_back(text);
        return Status::Ok;
    }

    Status ReportInserted(TagList list, std::int32_t position, Oid oid) override {
        Reports.push_back("insert " + NameOf(list) + " at " + std::to_string(position) + ": " + std::to_string(oid));
        return Status::Ok;
    }

    Status ReportRemoved(TagList list, std::int32_t position, Oid oid) override {
        Reports.push_back("remove " + NameOf(list) + " at " + std::to_string(position) + ": " + std::to_string(oid));
        return Status::Ok;
    }

    Status GetRequests(std::vector<TagRequest>& requests) override {
        requests = Requests;
        return Status::Ok;
    }

    Status FinishRequests(std::int64_t lastId) override {
        Reports.push_back("finish " + std::to_string(lastId));
        return Status::Ok;
    }

    std::vector<std::string> Reports;
    std::vector<TagRequest> Requests;

  private:
    static std::string NameOf(TagList list) {
        switch (list) {
        case TagList::Alarm:
            return "alarm";
        case TagList::Holiday:
            return "holiday";
        case TagList::Anniversary:
            return "anniversary";
        }
        return "?";
    }
};

// Passes on to another connection, if it was given one. Lives on the stack of a test: its references are not counted.
class OutlookProbe final : public IPOutlookApp {
  public:
    OutlookProbe() = default;

    explicit OutlookProbe(ComPtr<IPOutlookApp> real) : Real(std::move(real)) {}

    void AddRef() override { ++References; }

    void Release() override {
        if (--References == 0) {
            Note("Release");
        }
    }

    Status Logon(WindowHandle window) override {
        Note(window == WindowHandle::None ? "Logon(no window)" : "Logon(a window)");
        return Failed(LogonResult) || !Real ? LogonResult : Real->Logon(window);
    }

    Status Logoff() override {
        Note("Logoff");
        return Real ? Real->Logoff() : Status::Ok;
    }

    Status GetDefaultFolder(int folder, ComPtr<IFolder>& result) override {
        Note("GetDefaultFolder " + std::to_string(folder));
        return Failed(FolderResult) || !Real ? FolderResult : Real->GetDefaultFolder(folder, result);
    }

    Status GetItemFromOid(Oid oid, ComPtr<IAppointment>& item) override {
        if (Failed(ItemResult)) {
            return ItemResult;
        }
        if (Item != nullptr) {
            Item->AddRef();
            item = ComPtr<IAppointment>::Adopt(Item);
            return Status::Ok;
        }
        return Real ? Real->GetItemFromOid(oid, item) : Status::NotFound;
    }

    Status CreateItem(int kind, ComPtr<IAppointment>& item) override {
        if (NewItem != nullptr) {
            NewItem->AddRef();
            item = ComPtr<IAppointment>::Adopt(NewItem);
            return Status::Ok;
        }
        return Real ? Real->CreateItem(kind, item) : Status::Fail;
    }

    Status Begin(std::u16string_view name) override { return Real ? Real->Begin(name) : Status::Fail; }

    Status End() override {
        if (Failed(EndResult) && Real) {
            static_cast<void>(Real->Abandon()); // as the real one ends when it cannot write
            return EndResult;
        }
        return Real ? Real->End() : Status::Fail;
    }

    Status Abandon() override { return Real ? Real->Abandon() : Status::Fail; }

    Status GetUndoName(std::u16string& name) override { return Real ? Real->GetUndoName(name) : Status::NotFound; }

    Status Undo(std::vector<Oid>& restored) override { return Real ? Real->Undo(restored) : Status::NotFound; }

    Status BeginUndo(std::int32_t& steps) override { return Real ? Real->BeginUndo(steps) : Status::NotFound; }

    Status StepUndo() override {
        if (Failed(StepResult)) {
            return StepResult;
        }
        return Real ? Real->StepUndo() : Status::Unexpected;
    }

    Status AddNote(std::span<const std::uint8_t> note) override {
        if (Failed(NoteResult)) {
            return NoteResult;
        }
        return Real ? Real->AddNote(note) : Status::Fail;
    }

    Status GetUndoNotes(std::vector<std::vector<std::uint8_t>>& notes) override {
        if (Failed(NotesResult)) {
            return NotesResult;
        }
        return Real ? Real->GetUndoNotes(notes) : Status::NotFound;
    }

    Status Search(std::u16string_view text, ComPtr<IItemSearch>& search) override {
        return Real ? Real->Search(text, search) : Status::Fail;
    }

    Status BeginReading() override {
        Note("BeginReading");
        return Failed(ReadingResult) || !Real ? ReadingResult : Real->BeginReading();
    }

    Status EndReading() override {
        Note("EndReading");
        return Real ? Real->EndReading() : Status::Ok;
    }

    ITagMirror& Tags() override { return Mirror; }

    // A pointer that a session may hold as its own.
    ComPtr<IPOutlookApp> Share() {
        AddRef();
        return ComPtr<IPOutlookApp>::Adopt(this);
    }

    TagMirrorProbe Mirror;
    // A failure is given back without asking further.
    Status LogonResult = Status::Ok;
    Status FolderResult = Status::Ok;
    Status ItemResult = Status::Ok;
    Status ReadingResult = Status::Ok;
    Status NoteResult = Status::Ok;  // of adding one
    Status NotesResult = Status::Ok; // of reading them
    Status StepResult = Status::Ok;
    IAppointment* Item = nullptr;              // given for every OID, if there is one
    IAppointment* NewItem = nullptr;           // and for every new item
    Status EndResult = Status::Ok;             // a failure takes the group back
    std::vector<std::string>* Calls = nullptr; // where to note calls, if anywhere
    int References = 0;

  private:
    void Note(std::string call) {
        if (Calls != nullptr) {
            Calls->push_back(std::move(call));
        }
    }

    ComPtr<IPOutlookApp> Real;
};

} // namespace tavo::test
