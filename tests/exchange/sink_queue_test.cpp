// What is read in one thread reaches the sink in another: all of it, in its order, and no further than the sink wants.
#include "host/exchange/sink_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tavo::exchange {
namespace {

rules::StoredItem NamedItem(int number) {
    rules::StoredItem item;
    item.Uid = std::to_string(number);
    return item;
}

class ListingSink final : public IEntrySink {
  public:
    bool OnItem(rules::StoredItem item, const std::vector<TagList>& kinds, int line) override {
        return Note("item " + item.Uid + " of " + std::to_string(kinds.size()) + " at " + std::to_string(line));
    }

    bool OnLoneOccurrence(const LoneOccurrence& occurrence, int /*line*/) override {
        return Note("occurrence " + occurrence.Uid);
    }

    bool OnRefused(int /*line*/, const std::string& reason) override { return Note("refused " + reason); }

    void OnMended(int /*line*/, const std::string& what) override { Note("mended " + what); }

    bool OnPassedOver(PassedOver what, int line, const std::string& reason) override {
        return Note("passed over " + std::to_string(static_cast<int>(what)) + " " + std::to_string(line) + reason);
    }

    bool OnProgress(std::int64_t offset) override {
        Offset = offset;
        return true;
    }

    std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) override {
        Note("load " + name);
        return nullptr;
    }

    bool DefineZone(const std::string& name, const std::string& /*component*/) override {
        Note("define " + name);
        return name == "known";
    }

    std::vector<std::string> Calls;
    std::size_t Most = 1'000'000; // calls, before it wants no more
    std::int64_t Offset = 0;
    bool IsOfOneThread = true;

  private:
    bool Note(std::string call) {
        Calls.push_back(std::move(call));
        IsOfOneThread = IsOfOneThread && std::this_thread::get_id() == Own;
        return Calls.size() < Most;
    }

    std::thread::id Own = std::this_thread::get_id();
};

TEST(SinkQueueTest, GivesEveryKindOfCallInItsOrder) {
    ListingSink sink;
    SinkQueue queue(sink);
    bool isKnown = false;
    bool isUnknown = true;
    const FileOutcome outcome = queue.Run([&] {
        queue.OnItem(NamedItem(1), {TagList::Alarm}, 12);
        queue.OnMended(13, "a line");
        isKnown = queue.DefineZone("known", "");
        isUnknown = queue.DefineZone("other", "");
        queue.LoadZone("Europe/Berlin");
        queue.OnRefused(14, "an entry");
        queue.OnPassedOver(PassedOver::Cancelled, 17, "!");
        queue.OnLoneOccurrence({"series", {}, {}}, 15);
        queue.OnProgress(1234);
        return FileOutcome::Read;
    });
    EXPECT_EQ(outcome, FileOutcome::Read);
    EXPECT_EQ(sink.Calls, (std::vector<std::string>{"item 1 of 1 at 12", "mended a line", "define known",
                                                    "define other", "load Europe/Berlin", "refused an entry",
                                                    "passed over 1 17!", "occurrence series"}));
    EXPECT_TRUE(isKnown);
    EXPECT_FALSE(isUnknown);
    EXPECT_EQ(sink.Offset, 1234);
    EXPECT_TRUE(sink.IsOfOneThread);
}

TEST(SinkQueueTest, LosesNothingOfThousands) {
    ListingSink sink;
    SinkQueue queue(sink);
    queue.Run([&queue] {
        for (int number = 0; number < 12'345; ++number) {
            queue.OnItem(NamedItem(number), {}, number);
        }
        return FileOutcome::Read;
    });
    ASSERT_EQ(sink.Calls.size(), 12'345U);
    for (int number = 0; number < 12'345; ++number) {
        const std::string name = std::to_string(number);
        ASSERT_EQ(sink.Calls[static_cast<std::size_t>(number)], "item " + name + " of 0 at " + name);
    }
}

TEST(SinkQueueTest, PassesOnWhatTheReadingCameTo) {
    ListingSink sink;
    SinkQueue queue(sink);
    const FileOutcome outcome = queue.Run([&queue] {
        queue.OnItem(NamedItem(1), {}, 1);
        return FileOutcome::Broken;
    });
    EXPECT_EQ(outcome, FileOutcome::Broken);
    EXPECT_EQ(sink.Calls.size(), 1U);
}

TEST(SinkQueueTest, StopsTheReadingWhenTheSinkWantsNoMore) {
    ListingSink sink;
    sink.Most = 3;
    SinkQueue queue(sink);
    int read = 0;
    const FileOutcome outcome = queue.Run([&queue, &read] {
        while (queue.OnItem(NamedItem(read), {}, read)) {
            ++read;
        }
        return FileOutcome::Stopped;
    });
    EXPECT_EQ(outcome, FileOutcome::Stopped);
    EXPECT_EQ(sink.Calls.size(), 3U) << "nothing is called after a call that gave false";
    EXPECT_LT(read, 1000);
}

TEST(SinkQueueTest, IsStoppedAlsoWhenTheLastOfAllIsNotWanted) {
    ListingSink sink;
    sink.Most = 1;
    SinkQueue queue(sink);
    const FileOutcome outcome = queue.Run([&queue] {
        queue.OnItem(NamedItem(1), {}, 1);
        return FileOutcome::Read;
    });
    EXPECT_EQ(outcome, FileOutcome::Stopped);
}

TEST(SinkQueueTest, AnswersNoQuestionOfAReadingThatIsStopped) {
    ListingSink sink;
    sink.Most = 1;
    SinkQueue queue(sink);
    bool isDefined = true;
    const FileOutcome outcome = queue.Run([&] {
        queue.OnItem(NamedItem(1), {}, 1);
        isDefined = queue.DefineZone("known", "");
        return FileOutcome::Stopped;
    });
    EXPECT_EQ(outcome, FileOutcome::Stopped);
    EXPECT_FALSE(isDefined);
    EXPECT_EQ(sink.Calls, std::vector<std::string>{"item 1 of 0 at 1"});
}

// A sink that holds its thread back until the reading has gone as far ahead as it may.
class SlowSink final : public IEntrySink {
  public:
    explicit SlowSink(const std::atomic<int>& read) : Read(read) {}

    bool OnItem(rules::StoredItem /*item*/, const std::vector<TagList>& /*kinds*/, int line) override {
        if (line == 0) {
            int before = -1;
            while (before != Read) {
                before = Read;
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            }
            Ahead = before;
        }
        return true;
    }

    bool OnLoneOccurrence(const LoneOccurrence& /*occurrence*/, int /*line*/) override { return true; }

    bool OnRefused(int /*line*/, const std::string& /*reason*/) override { return true; }

    void OnMended(int /*line*/, const std::string& /*what*/) override {}

    bool OnPassedOver(PassedOver /*what*/, int /*line*/, const std::string& /*reason*/) override { return true; }

    bool OnProgress(std::int64_t /*offset*/) override { return true; }

    std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& /*name*/) override { return nullptr; }

    bool DefineZone(const std::string& /*name*/, const std::string& /*component*/) override { return true; }

    int Ahead = 0;

  private:
    const std::atomic<int>& Read;
};

int CountAhead(std::size_t bytesOfEach) {
    std::atomic<int> read = 0;
    SlowSink sink(read);
    SinkQueue queue(sink);
    queue.Run([&queue, &read, bytesOfEach] {
        rules::StoredItem item;
        item.Carried.assign(bytesOfEach, 'x');
        while (read < 2000 && queue.OnItem(item, {}, read)) {
            ++read;
        }
        return FileOutcome::Read;
    });
    EXPECT_EQ(read, 2000);
    return sink.Ahead;
}

TEST(SinkQueueTest, ReadsOnlyALittleAhead) {
    EXPECT_GT(CountAhead(0), 100) << "both threads have work";
    EXPECT_LT(CountAhead(0), 400);
    EXPECT_LT(CountAhead(100'000), 12) << "of large entries fewer";
}

} // namespace
} // namespace tavo::exchange
