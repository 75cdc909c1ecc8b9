// A store of a test's own, in memory or in a file, and few words to fill it and ask it.
#pragma once

#include "host/outlook/import_writer.h"
#include "host/outlook/store.h"
#include "host/posix/zone_database.h"
#include "tests/outlook/memory_machine.h"
#include "tests/rules/item_words.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace tavo::outlook::test {

// A folder that goes with the test.
class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path File(const std::string& name) const { return Path / name; }

    const std::filesystem::path Path;
};

using namespace rules::test;

// For what a store does wherever it lies.
class StoreTest : public ::testing::Test {
  protected:
    StoreTest() : StoreTest(nullptr, "") {}

    // On this machine; null: in memory, whatever the file.
    StoreTest(IStoreMachine* machine, const std::filesystem::path& file);

    void Reopen(const std::string& zone = "UTC");

    ComPtr<IAppointment> NewAppointment(const std::string& start, const std::string& end,
                                        const std::u16string& subject = u"Item");
    // Saved; gives its OID.
    Oid Add(const std::string& start, const std::string& end, const std::u16string& subject = u"Item");
    Oid AddSeries(const std::string& start, const std::string& end, const StoredPattern& pattern,
                  const std::u16string& subject = u"Series");
    // As an import brings it; expects it to be taken.
    Oid Import(const StoredItem& item);
    ImportOutcome TryImport(const StoredItem& item);
    ComPtr<IAppointment> Get(Oid oid);
    StoredItem Read(Oid oid);
    bool Exists(Oid oid);

    ComPtr<IPOutlookItemCollection> Items();
    // Fails the test on a failure; null with no match.
    ComPtr<IPOutlookItemCollection> Restrict(const std::u16string& restriction);
    // "start > end" of each item, walked by index.
    std::vector<std::string> Walk(IPOutlookItemCollection& items);
    std::vector<Oid> WalkOids(IPOutlookItemCollection& items);
    // With recurrences included; empty when there is no match.
    std::vector<std::string> Occurrences(const std::u16string& restriction);
    std::vector<std::string> Starts(const std::u16string& restriction);
    std::vector<Oid> Oids(const std::u16string& restriction);

    MemoryMachine Memory{posix::SystemZones()};
    IStoreMachine& Machine;
    const std::filesystem::path File;
    StorePtr Store;
    ComPtr<IPOutlookApp> App;
};

struct FolderOfStore {
    ScratchFolder Folder;
};

// For what a store does with its files, and with other processes. The folder is there before the store.
class StoreFileTest : protected FolderOfStore, public StoreTest {
  protected:
    StoreFileTest();
};

// All bytes of a file.
std::string BytesOf(const std::filesystem::path& file);

} // namespace tavo::outlook::test
