// Labels.
#include "host/qt/controls/label_view.h"

namespace tavo::qt {

LabelView::LabelView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Label(std::make_unique<QLabel>(parent)) {
    Label->setTextFormat(Qt::PlainText);
    Label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Label->setWordWrap(true);
    Label->setAttribute(Qt::WA_TransparentForMouseEvents); // a tap goes to the page beneath
}

void LabelView::ShowState(const shell::WindowRecord& record) {
    Label->setText(QString::fromStdU16String(record.Text));
}

} // namespace tavo::qt
