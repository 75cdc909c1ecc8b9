// Plays the first of the named files that is a sound: once, or again and again, louder and louder, for two minutes.
#include "host/qt/call_later.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSoundEffect>
#include <QStringList>
#include <QTimer>
#include <QUrl>

#include <algorithm>

namespace {

constexpr int kRingingTime = 120'000; // milliseconds
constexpr int kRisingTime = 60'000;   // to full loudness
constexpr int kStepTime = 500;
constexpr double kFirstVolume = 0.2;
constexpr int kLoadingPatience = 3000;

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
        // A device that never answers must not keep us for ever.
        Patience.setSingleShot(true);
        connect(&Patience, &QTimer::timeout, this, [this] { TryNext(); });
        TryNext();
    }

  private:
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
            Effect.setVolume(Repeats ? static_cast<float>(kFirstVolume) : 1.0F);
            Effect.setLoopCount(Repeats ? static_cast<int>(QSoundEffect::Infinite) : 1);
            Effect.play();
            Time.start();
            if (Repeats) {
                Step.start(kStepTime);
            }
        }
    }

    void TakeStep() {
        const double share = static_cast<double>(Time.elapsed()) / kRisingTime;
        Effect.setVolume(static_cast<float>(std::min(1.0, kFirstVolume + (1 - kFirstVolume) * share)));
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
    const QCoreApplication application(argc, argv);
    QStringList files = QCoreApplication::arguments().mid(1);
    const bool repeats = files.removeAll(QStringLiteral("--repeat")) > 0;
    const Ringer ringer(std::move(files), repeats);
    return QCoreApplication::exec();
}
