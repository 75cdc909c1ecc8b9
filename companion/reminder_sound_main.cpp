// Plays the first of the named files that is a sound: once, or again and again, louder and louder, for two minutes.
// Ends with 1 when it could play nothing.
#include "host/qt/call_later.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QStringList>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kRingingTime = 120'000; // milliseconds; also of a sound that is longer itself
constexpr int kRisingTime = 60'000;   // to full loudness
constexpr int kStepTime = 500;
constexpr double kFirstVolume = 0.2;
constexpr int kLoadingPatience = 2000;
constexpr const char* kRepeat = "--repeat";
// A sound server that hangs holds our loop too, so the system ends us then.
constexpr unsigned kServerPatience = 8; // seconds

class Ringer : public QObject {
  public:
    Ringer(QStringList files, bool repeats) : Files(std::move(files)), Repeats(repeats) {
        connect(&Effect, &QSoundEffect::statusChanged, this, [this] { TakeStatus(); });
        connect(&Effect, &QSoundEffect::playingChanged, this, [this] {
            if (!Effect.isPlaying() && Begun) {
                QCoreApplication::quit();
            }
        });
        connect(&Step, &QTimer::timeout, this, [this] { TakeStep(); });
        Patience.setSingleShot(true);
        connect(&Patience, &QTimer::timeout, this, [this] { BeginAnew(); });
        TryNext();
    }

  private:
    // The toolkit waits for ever for the rest of a file that is empty or cut short, and whoever would take that file
    // from it waits with it.
    [[noreturn]] void BeginAnew() const {
        QList<QByteArray> arguments{QByteArrayLiteral("tavo_reminder_sound")};
        if (Repeats) {
            arguments.append(kRepeat);
        }
        for (const QString& file : Files) {
            arguments.append(QFile::encodeName(file));
        }
        std::vector<char*> pointers;
        for (QByteArray& argument : arguments) {
            pointers.push_back(argument.data());
        }
        pointers.push_back(nullptr);
        execv("/proc/self/exe", pointers.data());
        _exit(1);
    }

    void TryNext() {
        if (Files.isEmpty()) {
            tavo::qt::CallLater(this, [] { QCoreApplication::exit(1); }); // there may be no loop yet that could end
            return;
        }
        Effect.setSource(QUrl::fromLocalFile(Files.takeFirst()));
        Patience.start(kLoadingPatience);
    }

    void TakeStatus() {
        if (Effect.status() == QSoundEffect::Error && !Begun) {
            tavo::qt::CallLater(this, [this] { TryNext(); }); // not from within the effect's own call
        } else if (Effect.status() == QSoundEffect::Ready && !Begun) {
            Begun = true;
            Patience.stop();
            static_cast<void>(
                alarm(kRingingTime / 1000 + kServerPatience)); // there was but the one for finding the server
            Effect.setVolume(Repeats ? static_cast<float>(kFirstVolume) : 1.0F);
            Effect.setLoopCount(Repeats ? static_cast<int>(QSoundEffect::Infinite) : 1);
            Effect.play();
            Time.start();
            Step.start(kStepTime);
        }
    }

    void TakeStep() {
        if (Repeats) {
            const double share = static_cast<double>(Time.elapsed()) / kRisingTime;
            Effect.setVolume(static_cast<float>(std::min(1.0, kFirstVolume + (1 - kFirstVolume) * share)));
        }
        if (Time.elapsed() >= kRingingTime) {
            QCoreApplication::quit();
        }
    }

    QStringList Files;
    bool Repeats;
    bool Begun = false;
    QSoundEffect Effect;
    QTimer Step;
    QTimer Patience;
    QElapsedTimer Time;
};

} // namespace

int main(int argc, char** argv) {
    static_cast<void>(alarm(kServerPatience));
    const QCoreApplication application(argc, argv);
    QStringList files = QCoreApplication::arguments().mid(1);
    const bool repeats = files.removeAll(QLatin1String(kRepeat)) > 0;
    if (files.isEmpty() || QMediaDevices::defaultAudioOutput().isNull()) {
        return 1; // without a device it would wait for ever to be played
    }
    const Ringer ringer(std::move(files), repeats);
    const int status = QCoreApplication::exec();
    _exit(status); // taken apart, the toolkit races with its own thread that talks to the sound server
}
