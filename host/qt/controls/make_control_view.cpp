// Which widget stands for which control.
#include "host/qt/controls/button_view.h"
#include "host/qt/controls/control_view.h"
#include "host/qt/controls/date_view.h"
#include "host/qt/controls/edit_view.h"
#include "host/qt/controls/ink_view.h"
#include "host/qt/controls/label_view.h"
#include "host/qt/controls/list_view.h"
#include "host/qt/controls/scroll_bar_view.h"
#include "host/qt/controls/time_view.h"

namespace tavo::qt {

std::unique_ptr<ControlView> MakeControlView(Device& device, const shell::WindowRecord& record, QWidget* parent) {
    switch (record.Control->Kind) {
    case ControlKind::Label:
        return std::make_unique<LabelView>(device, record, parent);
    case ControlKind::Edit:
    case ControlKind::NumberEdit:
        return std::make_unique<EditView>(device, record, parent);
    case ControlKind::FixedList:
    case ControlKind::EditableList:
        return std::make_unique<ListView>(device, record, parent);
    case ControlKind::DatePicker:
        return std::make_unique<DateView>(device, record, parent);
    case ControlKind::TimePicker:
        return std::make_unique<TimeView>(device, record, parent);
    case ControlKind::ScrollBar:
        return std::make_unique<ScrollBarView>(device, record, parent);
    case ControlKind::Ink:
        return std::make_unique<InkView>(device, record, parent);
    case ControlKind::CheckBox:
    case ControlKind::RadioButton:
    case ControlKind::PushButton:
    case ControlKind::PictureButton:
        break;
    }
    return std::make_unique<ButtonView>(device, record, parent);
}

} // namespace tavo::qt
