// Work on a file, shown while it lasts.
#include "app/file_work.h"

#include "framework/format.h"
#include "page/progress_dlg.h"
#include "res/strings.h"
#include "store/busy_time.h"
#include "store/long_work.h"

#include <utility>

namespace tavo {

namespace {

constexpr int kWhole = 1000; // of a file

class FileWork final : public ILongWork {
  public:
    explicit FileWork(const FileSteps& steps) : Steps(steps) {}

    bool DoNext() override { return Steps.DoNext(); }

    bool TakeBackNext() override {
        Abandon();
        return false;
    }

    void Abandon() override {
        WasCancelled = true;
        Steps.Leave();
    }

    int Total() const override { return kWhole; }

    int Done() const override { return Steps.Progress(); }

    std::u16string DescribeProgress() const override { return FormatText(Steps.ProgressFormat, Done() * 100 / kWhole); }

    bool IsCancelled() const { return WasCancelled; }

  private:
    const FileSteps& Steps;
    bool WasCancelled = false;
};

} // namespace

bool RunFileSteps(CProgramState& state, const FileSteps& steps) {
    const BusyTime busy(state);
    FileWork work(steps);
    RunLongWork(state.Pump, state, work, steps.Caption);
    return !work.IsCancelled();
}

int ShowFileBox(CProgramState& state, std::u16string text, MessageBoxButtons buttons) {
    MessageBoxDescription box;
    box.Text = std::move(text);
    box.Caption = kProgramTitle;
    box.Buttons = buttons;
    return state.Pump.ShowMessageBox(state.MainView, box);
}

} // namespace tavo
