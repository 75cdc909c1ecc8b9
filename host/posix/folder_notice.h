// The kernel's notice that something in a folder was written to.
#pragma once

#include "host/outlook/store_machine.h"
#include "host/posix/file_descriptor.h"

namespace tavo::posix {

class FolderNotice final : public outlook::IChangeNotice {
  public:
    Status Watch(const std::filesystem::path& folder) override; // Fail, and nothing is noticed, when that cannot be had
    void Take() override;

    // Readable when there is something to be taken; -1 when nothing is watched.
    int Descriptor() const { return Notifier.Get(); }

  private:
    FileDescriptor Notifier;
};

} // namespace tavo::posix
