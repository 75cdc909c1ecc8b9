// The appointment store, what went wrong with it last, and the news when another process writes into it.
#pragma once

#include "host/outlook/store.h"
#include "platform/com_ptr.h"
#include "platform/outlook.h"
#include "platform/status.h"

#include <functional>
#include <memory>
#include <string>

namespace tavo::qt {

class StoreLink : private outlook::IStoreLife {
  public:
    explicit StoreLink(std::string path);
    ~StoreLink() override;
    StoreLink(const StoreLink&) = delete;
    StoreLink& operator=(const StoreLink&) = delete;

    // The store's application object, not logged on.
    Status Create(ComPtr<IPOutlookApp>& outlook);

    // The store that the program is logged on to; null while it is not.
    outlook::StorePtr Store() const { return Own; }

    // Of the log-on that failed last.
    ErrorCode LastError() const { return Error; }

    // Called when another process changed items or asked for tags.
    void SetChanged(std::function<void()> changed) { Changed = std::move(changed); }

    // Called when the reminder service went on: its ledger changed.
    void SetReminded(std::function<void()> reminded) { Reminded = std::move(reminded); }

  private:
    struct Watch;

    void OnOpened(const outlook::StorePtr& store) override;
    void OnFailed(Status status) override;
    void OnClosing() override;
    void TakeNews();

    std::string Path;
    std::function<void()> Changed;
    std::function<void()> Reminded;
    ErrorCode Error = ErrorCode::Success;
    std::unique_ptr<Watch> OwnWatch;
    outlook::StorePtr Own;
};

} // namespace tavo::qt
