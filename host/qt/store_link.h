// The appointment store, and the news when another process changes it.
#pragma once

#include "platform/com_ptr.h"
#include "platform/outlook.h"
#include "platform/status.h"

#include <functional>
#include <memory>
#include <string>

namespace tavo::qt {

class StoreLink {
  public:
    explicit StoreLink(std::string path);
    ~StoreLink();
    StoreLink(const StoreLink&) = delete;
    StoreLink& operator=(const StoreLink&) = delete;

    Status Create(ComPtr<IPOutlookApp>& outlook);
    ErrorCode LastError();

    void SetChanged(std::function<void()> changed) { Changed = std::move(changed); }

    // The program opens and closes the store by itself; this follows.
    void WatchOnceOpen();

  private:
    struct Watch;

    std::string Path;
    std::function<void()> Changed;
    ComPtr<IPOutlookApp> Outlook;
    std::unique_ptr<Watch> OwnWatch;
};

} // namespace tavo::qt
