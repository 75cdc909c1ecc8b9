// One reminder of our own window: what it is about, and the buttons that answer it.
#pragma once

#include <QFrame>
#include <QString>

#include <functional>

class QVBoxLayout;

namespace tavo::companion {

class ReminderCard : public QFrame {
  public:
    using Listener = std::function<void(quint32 number, const QString& answer)>;

    ReminderCard(quint32 number, const QString& summary, const QString& body, Listener listener);

    quint32 Number() const { return OwnNumber; }

    void Dismiss();

  private:
    void AddText(QVBoxLayout& layout, const QString& summary, const QString& body);
    QWidget* MakeButtons();
    void Answer(const QString& answer);

    quint32 OwnNumber;
    Listener Told;
};

} // namespace tavo::companion
