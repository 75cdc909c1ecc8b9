// The fonts that stand in for the device's.
#include "host/qt/font_preparation.h"

#include <QFont>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <clocale>
#include <future>
#include <optional>
#include <utility>
#include <vector>

namespace tavo::qt {
namespace {

struct FoundFonts {
    bool HasAny = false;
    std::vector<std::pair<QString, QString>> StandIns; // a face of the device's, and the family that takes its place
};

struct Preparation {
    std::future<void> Setup;
    std::future<FoundFonts> Begun;
    std::future<void> FirstLetter;
    std::optional<bool> HasAnyFont; // once it is done
};

// One for the process, as its fonts are.
Preparation& OwnPreparation() {
    static Preparation preparation;
    return preparation;
}

// The toolkit's tables for blending outlines of this kind, the same for all fonts, take longer to compute than a page
// to draw: meanwhile this one is made ready for it.
void DrawOneLetter(const QString& family) {
    QFont font(family);
    font.setPixelSize(12);
    font.setStyleStrategy(QFont::StyleStrategy(QFont::NoSubpixelAntialias | QFont::NoFontMerging));
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(2, 14, QStringLiteral("1"));
}

FoundFonts FindFonts() {
    const QStringList families = QFontDatabase::families();
    const std::pair<const char*, QStringList> faces[] = {
        {"Arial", {"Arial", "Liberation Sans", "Arimo", "Nimbus Sans", "Helvetica", "DejaVu Sans"}},
        {"Comic Sans MS", {"Comic Sans MS", "Comic Neue", "Comic Relief", "Liberation Sans", "DejaVu Sans"}},
    };
    FoundFonts found;
    for (const auto& [face, candidates] : faces) {
        const auto standIn = std::find_if(candidates.begin(), candidates.end(),
                                          [&](const QString& candidate) { return families.contains(candidate); });
        if (standIn != candidates.end()) {
            found.StandIns.emplace_back(QString::fromLatin1(face), *standIn);
        }
    }
    // The toolkit lists these even where there is nothing behind them.
    found.HasAny = std::any_of(families.begin(), families.end(), [](const QString& family) {
        return family != QLatin1String("Monospace") && family != QLatin1String("Sans Serif") &&
               family != QLatin1String("Serif");
    });
    return found;
}

} // namespace

void BeginReadingFontSetup() {
    // As the application object does it: numbers are read by the process's locale, which must not change meanwhile.
    std::setlocale(LC_ALL, "");
    OwnPreparation().Setup = std::async(std::launch::async | std::launch::deferred, [] {
        FcInit(); // where it fails, the toolkit meets the same
    });
}

void BeginPreparingFonts() {
    Preparation& own = OwnPreparation();
    own.Begun = std::async(std::launch::async | std::launch::deferred, [&own] {
        if (own.Setup.valid()) {
            own.Setup.wait(); // else both would read it
        }
        return FindFonts();
    });
}

bool PrepareFonts() {
    Preparation& own = OwnPreparation();
    if (!own.HasAnyFont.has_value()) {
        const bool isBegun = own.Begun.valid();
        const FoundFonts found = isBegun ? own.Begun.get() : FindFonts();
        for (const auto& [face, standIn] : found.StandIns) {
            QFont::insertSubstitution(face, standIn);
        }
        if (isBegun && !found.StandIns.empty()) {
            own.FirstLetter =
                std::async(std::launch::async | std::launch::deferred, DrawOneLetter, found.StandIns.front().second);
        }
        own.HasAnyFont = found.HasAny;
    }
    return *own.HasAnyFont;
}

void FinishPreparingFonts() {
    static_cast<void>(PrepareFonts());
    if (const std::future<void>& letter = OwnPreparation().FirstLetter; letter.valid()) {
        letter.wait();
    }
}

} // namespace tavo::qt
