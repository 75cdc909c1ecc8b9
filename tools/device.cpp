// Opens the device's store for a command, and says in words why it cannot be opened.
#include "tools/device.h"

#include "host/locale/harmless_text.h"
#include "host/outlook/diagnosis.h"
#include "host/posix/root_folder.h"
#include "host/posix/store_machine.h"
#include "tools/arguments.h"

#include <cstdio>

namespace tavo::tools {

std::optional<files::DeviceRoot> FindRoot() {
    posix::RootResult result = posix::OpenDeviceRoot(posix::RootEnvironment::OfProcess());
    if (!result.Root) {
        Complain(result.Problem);
    }
    return result.Root;
}

Opening OpenStore(const files::DeviceRoot& root, outlook::Access access, outlook::StorePtr& store) {
    outlook::StoreOptions options;
    options.Rights = access;
    const Status status = outlook::OpenStore(posix::SystemMachine(), root.StorePath(), options, store);
    if (Succeeded(status)) {
        return Opening::Good;
    }
    if (status == Status::NotFound && access == outlook::Access::ReadOnly) {
        return Opening::NoStore;
    }
    const outlook::Diagnosis diagnosis =
        outlook::DiagnoseStore(posix::SystemMachine(), root.StorePath(), outlook::CheckDepth::Quick);
    if (diagnosis.State == outlook::Verdict::Ok || diagnosis.State == outlook::Verdict::Missing) {
        Complain("The store " + root.StorePath() + " cannot be opened: " + DescribeFailure(status) + ".");
    } else {
        Complain(diagnosis.What + " " + diagnosis.Advice);
    }
    return Opening::Failed;
}

std::optional<outlook::StorePtr> OpenStoreToRead(const files::DeviceRoot& root) {
    outlook::StorePtr store;
    const bool failed = OpenStore(root, outlook::Access::ReadOnly, store) == Opening::Failed;
    return failed ? std::nullopt : std::optional(store);
}

void Complain(std::string_view sentence) {
    std::fprintf(stderr, "tavo: %s\n", locale::MakeHarmless(sentence).c_str());
}

int RefuseWords(std::string_view sentence, std::string_view command) {
    Complain(sentence);
    std::fprintf(stderr, "Try `tavo%s%.*s --help`.\n", command.empty() ? "" : " ", static_cast<int>(command.size()),
                 command.data());
    return kExitUsage;
}

} // namespace tavo::tools
