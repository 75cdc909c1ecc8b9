// Lets a file be read in a thread of its own while what was read of it is stored.
#pragma once

#include "host/exchange/calendar_file.h"
#include "host/exchange/entry_sink.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tavo::exchange {

// What the reader puts in waits here, in its order, for the sink, which never sees another thread. Whatever the file
// is, no more waits than a few hundred entries or what is left of a megabyte beside the last of them.
class SinkQueue final : public IEntrySink {
  public:
    explicit SinkQueue(IEntrySink& sink) : Sink(sink) {}

    // Runs `read`, which reads a file into this queue, in another thread, and here calls the sink until all is done.
    // What `read` gives; Stopped when the sink did not want to go on.
    FileOutcome Run(const std::function<FileOutcome()>& read);

    bool OnItem(rules::StoredItem item, const std::vector<TagList>& kinds, int line) override;
    bool OnLoneOccurrence(const LoneOccurrence& occurrence, int line) override;
    bool OnRefused(int line, const std::string& reason) override;
    void OnMended(int line, const std::string& what) override;
    bool OnPassedOver(PassedOver what, int line, const std::string& reason) override;
    // The sink hears of it when it gets to what was put in before.
    bool OnProgress(std::int64_t offset) override;
    // These two wait for the answer.
    std::unique_ptr<rules::ZoneRules> LoadZone(const std::string& name) override;
    bool DefineZone(const std::string& name, const std::string& component) override;

  private:
    using Call = std::function<bool(IEntrySink&)>;

    struct Batch {
        std::vector<Call> Calls;
        std::size_t Bytes = 0;
        std::int64_t Offset = 0; // of the file, at its end
    };

    bool Put(Call call, std::size_t bytes);
    bool HandOver();
    bool Ask(const Call& question);
    bool Serve(Batch& batch);
    std::optional<Batch> TakeNext();

    IEntrySink& Sink;
    Batch Filling;      // of the reading thread
    bool GoesOn = true; // likewise

    std::mutex Guard; // of all that follows
    std::condition_variable Turn;
    std::optional<Batch> Ready;
    bool IsServing = false;
    bool IsRead = false;
    bool IsStopped = false;
};

} // namespace tavo::exchange
