// Batches of calls that go from the reading thread to the sink's.
#include "host/exchange/sink_queue.h"

#include <thread>
#include <utility>

namespace tavo::exchange {
namespace {

// Enough that handing over costs nothing beside reading, and little enough that both threads always have work.
constexpr std::size_t kMostCalls = 100;
constexpr std::size_t kMostBytes = std::size_t{256} * 1024;

std::size_t SizeOf(const rules::StoredItem& item) {
    return item.Carried.size() + item.ForeignRule.size() + item.Body.size() + item.Ink.size() +
           item.Exceptions.size() * sizeof(rules::StoredException);
}

} // namespace

FileOutcome SinkQueue::Run(const std::function<FileOutcome()>& read) {
    FileOutcome outcome = FileOutcome::Stopped;
    std::thread reading([this, &read, &outcome] {
        outcome = read();
        HandOver();
        const std::lock_guard lock(Guard);
        IsRead = true;
        Turn.notify_all();
    });
    while (std::optional<Batch> batch = TakeNext()) {
        const bool goesOn = Serve(*batch);
        const std::lock_guard lock(Guard);
        IsServing = false;
        IsStopped = !goesOn;
        Turn.notify_all();
        if (!goesOn) {
            break;
        }
    }
    reading.join();
    return IsStopped ? FileOutcome::Stopped : outcome;
}

// Nothing once everything was read and served.
std::optional<SinkQueue::Batch> SinkQueue::TakeNext() {
    std::unique_lock lock(Guard);
    Turn.wait(lock, [this] { return Ready || IsRead; });
    std::optional<Batch> next = std::exchange(Ready, std::nullopt);
    IsServing = next.has_value();
    Turn.notify_all();
    return next;
}

bool SinkQueue::Serve(Batch& batch) {
    for (Call& call : batch.Calls) {
        if (!call(Sink)) {
            return false;
        }
    }
    return Sink.OnProgress(batch.Offset);
}

bool SinkQueue::Put(Call call, std::size_t bytes) {
    Filling.Calls.push_back(std::move(call));
    Filling.Bytes += bytes;
    return Filling.Calls.size() < kMostCalls && Filling.Bytes < kMostBytes ? GoesOn : HandOver();
}

bool SinkQueue::HandOver() {
    std::unique_lock lock(Guard);
    Turn.wait(lock, [this] { return !Ready || IsStopped; });
    GoesOn = !IsStopped;
    if (GoesOn) {
        Ready = std::exchange(Filling, {});
        Filling.Offset = Ready->Offset;
        Turn.notify_all();
    } else {
        Filling = {};
    }
    return GoesOn;
}

// False when the sink gives false, or gives no answer any more.
bool SinkQueue::Ask(const Call& question) {
    bool answer = false;
    Filling.Calls.push_back([&answer, &question](IEntrySink& sink) {
        answer = question(sink);
        return true;
    });
    if (!HandOver()) {
        return false;
    }
    std::unique_lock lock(Guard);
    Turn.wait(lock, [this] { return IsStopped || (!Ready && !IsServing); });
    return answer;
}

bool SinkQueue::OnItem(rules::StoredItem item, const std::vector<TagList>& kinds, int line) {
    const std::size_t bytes = SizeOf(item);
    return Put([item = std::move(item), kinds,
                line](IEntrySink& sink) mutable { return sink.OnItem(std::move(item), kinds, line); },
               bytes);
}

bool SinkQueue::OnLoneOccurrence(const LoneOccurrence& occurrence, int line) {
    return Put([occurrence, line](IEntrySink& sink) { return sink.OnLoneOccurrence(occurrence, line); },
               SizeOf(occurrence.Alone));
}

bool SinkQueue::OnRefused(int line, const std::string& reason) {
    return Put([line, reason](IEntrySink& sink) { return sink.OnRefused(line, reason); }, reason.size());
}

void SinkQueue::OnMended(int line, const std::string& what) {
    Put(
        [line, what](IEntrySink& sink) {
            sink.OnMended(line, what);
            return true;
        },
        what.size());
}

bool SinkQueue::OnPassedOver(PassedOver what, int line, const std::string& reason) {
    return Put([what, line, reason](IEntrySink& sink) { return sink.OnPassedOver(what, line, reason); }, reason.size());
}

bool SinkQueue::OnProgress(std::int64_t offset) {
    Filling.Offset = offset;
    return GoesOn;
}

std::unique_ptr<rules::ZoneRules> SinkQueue::LoadZone(const std::string& name) {
    std::unique_ptr<rules::ZoneRules> zone;
    Ask([&zone, &name](IEntrySink& sink) {
        zone = sink.LoadZone(name);
        return true;
    });
    return zone;
}

bool SinkQueue::DefineZone(const std::string& name, const std::string& component) {
    return Ask([&name, &component](IEntrySink& sink) { return sink.DefineZone(name, component); });
}

} // namespace tavo::exchange
