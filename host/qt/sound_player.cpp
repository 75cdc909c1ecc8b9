// A module of its own: plays one wave file at a time.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QSoundEffect>
#include <QThread>
#include <QUrl>

namespace {

constexpr qint64 kLoadingPatience = 2000; // milliseconds

// Null until something was played, and from the application's end on.
QPointer<QSoundEffect>& GetEffect() {
    static QPointer<QSoundEffect> effect;
    return effect;
}

// Waits for a file that is still being loaded: the toolkit's thread for that must not find the effect gone, as it then
// crashes or never ends.
void LetGo() {
    const QPointer<QSoundEffect>& playing = GetEffect();
    QElapsedTimer waiting;
    waiting.start();
    while (!playing.isNull() && playing->status() == QSoundEffect::Loading && !waiting.hasExpired(kLoadingPatience)) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1);
    }
    delete playing.data();
}

} // namespace

// Plays the file, stopping what was playing; an empty path only stops.
extern "C" Q_DECL_EXPORT void TavoPlayFile(const char* path) {
    QPointer<QSoundEffect>& playing = GetEffect();
    if (playing.isNull()) {
        playing = new QSoundEffect(QCoreApplication::instance());
        qAddPostRoutine(LetGo); // before the application goes, and with it this module
    }
    playing->stop();
    if (*path != '\0') {
        playing->setSource(QUrl::fromLocalFile(QString::fromUtf8(path)));
        playing->play();
    }
}
