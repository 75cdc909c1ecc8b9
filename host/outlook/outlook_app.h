// The device's store object: logging on opens the file, logging off closes it.
#pragma once

#include "host/outlook/session.h"

#include <filesystem>

namespace tavo::outlook {

class OutlookApp final : public RefCounted<IPOutlookApp> {
  public:
    // `life` may be null.
    OutlookApp(IStoreMachine& machine, std::filesystem::path path, StoreOptions options, IStoreLife* life);
    explicit OutlookApp(const StorePtr& store);

    Status Logon(WindowHandle window) override;
    Status Logoff() override;
    Status GetDefaultFolder(int folder, ComPtr<IFolder>& result) override;
    Status GetItemFromOid(Oid oid, ComPtr<IAppointment>& item) override;
    Status CreateItem(int kind, ComPtr<IAppointment>& item) override;
    Status Begin(std::u16string_view name) override;
    Status End() override;
    Status Abandon() override;
    Status GetUndoName(std::u16string& name) override;
    Status Undo(std::vector<Oid>& restored) override;
    Status BeginUndo(std::int32_t& steps) override;
    Status StepUndo() override;
    Status AddNote(std::span<const std::uint8_t> note) override;
    Status GetUndoNotes(std::vector<std::vector<std::uint8_t>>& notes) override;
    Status BeginReading() override;
    Status EndReading() override;
    Status Search(std::u16string_view text, ComPtr<IItemSearch>& search) override;
    ITagMirror& Tags() override;

    StorePtr Source() const { return Open ? Open->Source : nullptr; }

  private:
    // Before log-on there is no mirror to speak to.
    class NoTags final : public ITagMirror {
      public:
        Status ReplaceList(TagList, std::span<const Oid>) override { return Status::Unexpected; }

        Status ReportInserted(TagList, std::int32_t, Oid) override { return Status::Unexpected; }

        Status ReportRemoved(TagList, std::int32_t, Oid) override { return Status::Unexpected; }

        Status GetRequests(std::vector<TagRequest>&) override { return Status::Unexpected; }

        Status FinishRequests(std::int64_t) override { return Status::Unexpected; }
    };

    ~OutlookApp() override = default;

    IStoreMachine* Machine = nullptr; // null: it is open and stays so
    std::filesystem::path Path;
    StoreOptions Options;
    IStoreLife* Life = nullptr;
    ComPtr<Session> Open;
    NoTags Closed;
};

} // namespace tavo::outlook
