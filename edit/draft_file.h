// Where drafts lie while an editor is open, and what an earlier run of the program left there.
#pragma once

#include "edit/appointment_draft.h"
#include "platform/host.h"

#include <string>
#include <vector>

namespace tavo {

struct FoundDraft {
    std::u16string Path;
    AppointmentDraft Draft;
};

// The file of one open editor. It outlives the object: only Remove takes it away.
class DraftFile {
  public:
    explicit DraftFile(IHost& host) : Host(host) {}

    // Goes on with a file that was found.
    void Take(std::u16string_view path) { Path = path; }

    // Brings the file up to the draft. One that cannot be written is tried again with the next change.
    void Write(const AppointmentDraft& draft);
    // Nothing when there is no file.
    void Remove();

  private:
    std::u16string FreePath() const;

    IHost& Host;
    std::u16string Path; // empty: there is no file yet
    std::vector<std::uint8_t> Written;
};

// Oldest first. Files that are no whole drafts are put to the declined ones. Only to be asked for while no editor is
// open: this program is the only one that writes them.
std::vector<FoundDraft> FindDrafts(IHost& host);

// The draft is not wanted: it stays in the folder of declined ones, and is not found again.
void DeclineDraft(IHost& host, const std::u16string& path);

} // namespace tavo
