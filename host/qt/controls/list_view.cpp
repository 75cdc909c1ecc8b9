// Lists: entries, choice, opening and closing.
#include "host/qt/controls/list_view.h"

#include "host/qt/call_later.h"

#include <QAbstractItemView>
#include <QStyle>

#include <algorithm>

namespace tavo::qt {
namespace {

constexpr int kMostVisibleEntries = 9;

} // namespace

void ListBox::hidePopup() {
    QComboBox::hidePopup();
    // The choice that closed it is told after this; the program must hear of the choice first.
    CallLater(this, [this] { Shared.Controls.CloseList(Control); });
}

void ListBox::OpenNow() {
    const QRect screen = Shared.Geometry.ToolkitPixels(kWholeScreen).translated(window()->mapToGlobal(QPoint()));
    const QRect box(mapToGlobal(QPoint()), size());
    const int below = screen.bottom() - box.bottom();
    const int above = box.top() - screen.top();
    const int frame = 2 * style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    const int row = std::max(1, view()->sizeHintForRow(0));
    const int wishedRows = std::clamp(count(), 1, maxVisibleItems());
    // Where it does not fit at all it opens on the roomier side, shows fewer entries and scrolls.
    const bool opensAbove = wishedRows * row + frame > below && above > below;
    const int rows = std::clamp(((opensAbove ? above : below) - frame) / row, 1, wishedRows);
    const int wishedWidth =
        view()->sizeHintForColumn(0) + frame + (count() > rows ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0);
    view()->setMinimumWidth(std::clamp(wishedWidth, width(), std::max(width(), screen.width())));
    QComboBox::showPopup();
    QWidget* popup = view()->window();
    const int height = rows * row + frame;
    const int left = std::max(screen.left(), std::min(popup->x(), screen.right() + 1 - popup->width()));
    popup->setGeometry(left, opensAbove ? box.top() - height : box.bottom() + 1, popup->width(), height);
    view()->scrollTo(view()->currentIndex());
}

ListView::ListView(Device& device, const shell::WindowRecord& record, QWidget* parent)
    : ControlView(device, record.Handle), Text(device, record.Handle),
      Box(std::make_unique<ListBox>(device, record.Handle, parent)) {
    Box->view()->setTextElideMode(Qt::ElideRight);
    Box->setMaxVisibleItems(kMostVisibleEntries);
    Box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (record.Control->Kind == ControlKind::EditableList) {
        Box->setEditable(true);
        Box->setInsertPolicy(QComboBox::NoInsert);
        Box->setCompleter(nullptr);
        // Typing an entry's text is not choosing it, whether the focus or Enter ends it.
        QObject::disconnect(Box->lineEdit(), &QLineEdit::editingFinished, Box.get(), nullptr);
        QObject::disconnect(Box->lineEdit(), &QLineEdit::returnPressed, Box.get(), nullptr);
        Text.Connect(*Box->lineEdit());
    }
    QObject::connect(Box.get(), &QComboBox::activated, Box.get(), [this](int index) {
        Shared.Controls.Choose(Control, index);
        if (const shell::WindowRecord* now = Record(); now != nullptr) {
            ShowState(*now);
        }
    });
}

void ListView::ShowState(const shell::WindowRecord& record) {
    const shell::ControlState& state = *record.Control;
    const auto same = [&](int i) {
        return Box->itemText(i).toStdU16String() == state.Items[static_cast<std::size_t>(i)];
    };
    const QSignalBlocker quiet(Box->lineEdit()); // what the box does to its own text is not typing
    bool isFilled = Box->count() == static_cast<int>(state.Items.size());
    for (int i = 0; isFilled && i < Box->count(); ++i) {
        isFilled = same(i);
    }
    if (!isFilled) {
        Box->clear();
        for (const std::u16string& item : state.Items) {
            Box->addItem(QString::fromStdU16String(item));
        }
    }
    if (Box->currentIndex() != state.Current) {
        Box->setCurrentIndex(state.Current);
    }
    if (Box->isEditable()) {
        Text.ShowText(*Box->lineEdit(), record);
    }
}

} // namespace tavo::qt
