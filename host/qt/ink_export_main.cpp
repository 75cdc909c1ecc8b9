// tavo-ink-export FORMAT FOLDER MEMO...: draws memo files into files of the same names in the folder. `tavo memo
// export` starts it, and with it needs no toolkit itself.
#include "host/ink/codec.h"
#include "host/locale/harmless_text.h"
#include "host/posix/replace_file.h"
#include "host/qt/ink_export.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <map>

namespace {

using namespace tavo;

constexpr int kFirstMemo = 3;
constexpr int kFailure = 1;
constexpr int kUsage = 2;

bool Complain(const QString& sentence) {
    std::fprintf(stderr, "tavo: %s\n", locale::MakeHarmless(sentence.toStdString()).c_str());
    return false;
}

bool Export(const QString& memo, qt::ExportFormat format, const QString& ending, const QDir& folder) {
    std::vector<std::uint8_t> bytes;
    if (posix::ReadFile(memo.toStdString(), ink::kMaxInkBytes, bytes) != ErrorCode::Success) {
        return Complain(QStringLiteral("The memo %1 cannot be read.").arg(memo));
    }
    std::vector<ink::PlacedStroke> strokes;
    switch (ink::Decode(bytes, strokes)) {
    case ink::Reading::Foreign:
        return Complain(QStringLiteral("The memo %1 was written by another program.").arg(memo));
    case ink::Reading::Damaged:
        return Complain(QStringLiteral("The memo %1 is damaged.").arg(memo));
    case ink::Reading::Whole:
        break;
    }
    const QString name = QFileInfo(memo).completeBaseName();
    const QString path = folder.filePath(name + QLatin1Char('.') + ending);
    return qt::ExportStrokes(strokes, format, path, name) ||
           Complain(QStringLiteral("The file %1 cannot be written.").arg(path));
}

} // namespace

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    const QStringList words = QCoreApplication::arguments();
    const std::map<QString, qt::ExportFormat> formats{{QStringLiteral("svg"), qt::ExportFormat::Svg},
                                                      {QStringLiteral("png"), qt::ExportFormat::Png},
                                                      {QStringLiteral("pdf"), qt::ExportFormat::Pdf}};
    const auto format = words.size() > kFirstMemo ? formats.find(words[1]) : formats.end();
    if (format == formats.end()) {
        std::fprintf(stderr, "usage: tavo-ink-export svg|png|pdf FOLDER MEMO...\n");
        return kUsage;
    }
    const QDir folder(words[2]);
    if (!folder.mkpath(QStringLiteral("."))) {
        Complain(QStringLiteral("The folder %1 cannot be made.").arg(words[2]));
        return kFailure;
    }
    bool areAllGood = true;
    for (const QString& memo : words.mid(kFirstMemo)) {
        areAllGood = Export(memo, format->second, format->first, folder) && areAllGood;
    }
    return areAllGood ? 0 : kFailure;
}
