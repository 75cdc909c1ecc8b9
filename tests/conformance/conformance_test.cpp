// Starting the scratch program.
#include "tests/conformance/conformance_test.h"

#include <utility>

namespace tavo::conformance {

ConformanceTest::ConformanceTest() {
    WindowDescription frame;
    frame.Kind = WindowKind::Frame;
    frame.ClassName = u"ScratchClass";
    frame.Title = u"Scratch";
    frame.Visible = true;
    Frame.Make(frame);
    WindowDescription view;
    view.Kind = WindowKind::View;
    view.Parent = Frame.Handle();
    view.Visible = true;
    View.Make(view);
    Page.Make(View.Handle());
    Page.Show(ShowCommand::Maximize);
    Pump.SetMainWindow(Frame.Handle());
}

void ConformanceTest::End(int result) {
    Dialog->EndDialog(result);
    Host.Queue().PostMessageW({});
}

void ConformanceTest::OpenDialogOnTap() {
    Page.Log.Hook = [this](const Message& message) {
        if (message.Number != WM_LBUTTONDOWN) {
            return;
        }
        ScratchDialog dialog(Pump);
        ScratchDialog* const before = std::exchange(Dialog, &dialog);
        if (Prepare) {
            Prepare(dialog);
        }
        Results.push_back(dialog.DoModal());
        Dialog = before;
        Ended = dialog.Log;
    };
    Steps.Tap(5, 5);
}

} // namespace tavo::conformance
