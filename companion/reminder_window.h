// Our own window for reminders, where the desktop has no notifications.
#pragma once

#include <QList>
#include <QString>
#include <QWidget>

#include <functional>

class QScrollArea;
class QVBoxLayout;

namespace tavo::companion {

class ReminderCard;

class ReminderWindow : public QWidget {
  public:
    // "dismiss 7", "snooze 7 10" or "open 7", of the card of this number.
    using Listener = std::function<void(const QString& answer)>;

    explicit ReminderWindow(Listener listener);

    // Puts a card up, or redraws the one of this number in its place.
    void ShowCard(quint32 number, const QString& summary, const QString& body);
    // The last one closes the window.
    void CloseCard(quint32 number);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    qsizetype PlaceOf(quint32 number) const;
    void Answer(quint32 number, const QString& answer);
    void DismissFocused();
    void Fit();

    Listener Told;
    QScrollArea* Scroll;
    QWidget* Board;
    QVBoxLayout* Stack;
    QList<ReminderCard*> Cards; // from top to bottom
};

} // namespace tavo::companion
