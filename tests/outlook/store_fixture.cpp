// The words of the store's tests.
#include "tests/outlook/store_fixture.h"

#include "host/posix/store_machine.h"

#include <fstream>
#include <iterator>
#include <stdlib.h>
#include <unistd.h>

namespace tavo::outlook::test {

namespace {

std::filesystem::path MakeScratch() {
    // In memory where there is such a place: full synchronisation to a disk takes most of a test's time.
    const std::filesystem::path memory = "/dev/shm";
    const std::filesystem::path place =
        access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
    std::string pattern = (place / "tavo-outlook-XXXXXX").string();
    return mkdtemp(pattern.data());
}

} // namespace

ScratchFolder::ScratchFolder() : Path(MakeScratch()) {}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored; // a test's leftovers do not fail it
    std::filesystem::remove_all(Path, ignored);
}

StoreTest::StoreTest(IStoreMachine* machine, const std::filesystem::path& file)
    : Machine(machine == nullptr ? Memory : *machine), File(machine == nullptr ? Memory.File("Outlook.db") : file) {
    Reopen();
}

StoreFileTest::StoreFileTest() : StoreTest(&posix::SystemMachine(), Folder.File("Outlook.db")) {}

void StoreTest::Reopen(const std::string& zone) {
    App.Reset();
    Store.reset();
    StoreOptions options;
    options.DeviceZone = zone;
    ASSERT_EQ(OpenStore(Machine, File, options, Store), Status::Ok);
    App = MakeOutlookApp(Store);
}

ComPtr<IAppointment> StoreTest::NewAppointment(const std::string& start, const std::string& end,
                                               const std::u16string& subject) {
    ComPtr<IAppointment> item;
    EXPECT_EQ(App->CreateItem(kItemAppointment, item), Status::Ok);
    EXPECT_EQ(item->put_Subject(subject), Status::Ok);
    EXPECT_EQ(item->put_Start(DateAt(start)), Status::Ok);
    EXPECT_EQ(item->put_End(DateAt(end)), Status::Ok);
    return item;
}

Oid StoreTest::Add(const std::string& start, const std::string& end, const std::u16string& subject) {
    const ComPtr<IAppointment> item = NewAppointment(start, end, subject);
    EXPECT_EQ(item->Save(), Status::Ok);
    Oid oid = 0;
    EXPECT_EQ(item->get_Oid(oid), Status::Ok);
    return oid;
}

Oid StoreTest::AddSeries(const std::string& start, const std::string& end, const StoredPattern& pattern,
                         const std::u16string& subject) {
    StoredItem item = MakeItem("", start, end, subject);
    item.Pattern = pattern;
    return Import(item);
}

ImportOutcome StoreTest::TryImport(const StoredItem& item) {
    ImportOutcome outcome;
    ImportWriter writer(Store);
    EXPECT_EQ(writer.Begin(u"Import"), Status::Ok);
    EXPECT_EQ(writer.Write(item, outcome), Status::Ok);
    EXPECT_EQ(writer.Commit(), Status::Ok);
    return outcome;
}

Oid StoreTest::Import(const StoredItem& item) {
    const ImportOutcome outcome = TryImport(item);
    EXPECT_NE(outcome.Result, ImportResult::Refused) << outcome.Reason;
    return outcome.Item;
}

ComPtr<IAppointment> StoreTest::Get(Oid oid) {
    ComPtr<IAppointment> item;
    EXPECT_EQ(App->GetItemFromOid(oid, item), Status::Ok);
    return item;
}

StoredItem StoreTest::Read(Oid oid) {
    StoredItem item;
    EXPECT_EQ(Store->ReadItem(oid, item), Status::Ok);
    return item;
}

bool StoreTest::Exists(Oid oid) {
    StoredItem item;
    return Store->ReadItem(oid, item) == Status::Ok;
}

ComPtr<IPOutlookItemCollection> StoreTest::Items() {
    ComPtr<IFolder> folder;
    ComPtr<IPOutlookItemCollection> items;
    EXPECT_EQ(App->GetDefaultFolder(kFolderCalendar, folder), Status::Ok);
    EXPECT_EQ(folder->get_Items(items), Status::Ok);
    return items;
}

ComPtr<IPOutlookItemCollection> StoreTest::Restrict(const std::u16string& restriction) {
    ComPtr<IPOutlookItemCollection> items;
    EXPECT_EQ(Items()->Restrict(restriction, items), Status::Ok);
    return items;
}

std::vector<std::string> StoreTest::Walk(IPOutlookItemCollection& items) {
    std::vector<std::string> lines;
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; Succeeded(items.Item(index, item)); ++index) {
        DATE start = 0;
        DATE end = 0;
        EXPECT_EQ(item->get_Start(start), Status::Ok);
        EXPECT_EQ(item->get_End(end), Status::Ok);
        lines.push_back(TextOf(SecondsFromDate(start)) + " > " + TextOf(SecondsFromDate(end)));
    }
    return lines;
}

std::vector<Oid> StoreTest::WalkOids(IPOutlookItemCollection& items) {
    std::vector<Oid> oids;
    ComPtr<IAppointment> item;
    for (std::int32_t index = 1; Succeeded(items.Item(index, item)); ++index) {
        EXPECT_EQ(item->get_Oid(oids.emplace_back()), Status::Ok);
    }
    return oids;
}

std::vector<std::string> StoreTest::Occurrences(const std::u16string& restriction) {
    const auto items = Restrict(restriction);
    if (!items) {
        return {};
    }
    EXPECT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    return Walk(*items);
}

std::vector<std::string> StoreTest::Starts(const std::u16string& restriction) {
    std::vector<std::string> starts = Occurrences(restriction);
    for (std::string& line : starts) {
        line.resize(line.find(" > "));
    }
    return starts;
}

std::vector<Oid> StoreTest::Oids(const std::u16string& restriction) {
    const auto items = Restrict(restriction);
    if (!items) {
        return {};
    }
    EXPECT_EQ(items->put_IncludeRecurrences(true), Status::Ok);
    return WalkOids(*items);
}

std::string BytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace tavo::outlook::test
