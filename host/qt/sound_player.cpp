// A module of its own: plays one wave file at a time.
#include <QCoreApplication>
#include <QPointer>
#include <QSoundEffect>
#include <QUrl>

// Plays the file, stopping what was playing; an empty path only stops.
extern "C" Q_DECL_EXPORT void TavoPlayFile(const char* path) {
    static QPointer<QSoundEffect> playing;
    if (playing.isNull()) {
        playing = new QSoundEffect(QCoreApplication::instance()); // goes with the application, before the module
    }
    playing->stop();
    if (*path != '\0') {
        playing->setSource(QUrl::fromLocalFile(QString::fromUtf8(path)));
        playing->play();
    }
}
