// Finding the file and the player.
#include "host/qt/sound.h"

#include <QCoreApplication>
#include <QLibrary>

namespace tavo::qt {

Sound::PlayFile Sound::LoadPlayer() {
    if (!WasLoaded) {
        WasLoaded = true;
        const QString folder = QCoreApplication::applicationDirPath();
        for (const char* place :
             {"/../lib/tavocalendar/tavo_sound.so", "/../libexec/tavocalendar/tavo_sound.so", "/tavo_sound.so"}) {
            QLibrary library(folder + QLatin1String(place));
            if (library.load()) {
                Player = reinterpret_cast<PlayFile>(library.resolve("TavoPlayFile"));
                break;
            }
        }
    }
    return Player;
}

bool Sound::PlaySoundW(std::u16string_view path) {
    if (path.empty()) {
        if (Player != nullptr) { // never loaded: nothing can be playing
            Player("");
        }
        return true;
    }
    const std::optional<std::string> file = Files.RealPathOfFile(path);
    if (!file.has_value()) {
        return false;
    }
    if (const PlayFile play = LoadPlayer(); play != nullptr) {
        play(file->c_str());
    }
    return true; // a device without sound is no error
}

} // namespace tavo::qt
