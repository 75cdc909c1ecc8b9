// Our own window for reminders, where the desktop has no notifications.
#pragma once

#include <QHash>
#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace tavo::companion {

class ReminderWindow : public QWidget {
  public:
    ReminderWindow();

    // Puts a card up, or redraws the one of this number.
    void ShowCard(quint32 number, const QString& summary, const QString& body);
    void CloseCard(quint32 number);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* MakeCard(quint32 number, const QString& summary, const QString& body);
    QWidget* MakeButtons(quint32 number);
    void DismissAll();
    void Answer(quint32 number, const QString& answer);

    QVBoxLayout* Stack;
    QHash<quint32, QWidget*> Cards;
};

} // namespace tavo::companion
