// Prints what measuring a text of 10,000 UTF-16 units costs on the desktop, for each of several scripts: its name and
// the nanoseconds of processor time, with a font that has measured nothing before.
#include "benchmarks/costs.h"
#include "host/qt/font.h"
#include "host/qt/font_preparation.h"

#include <QGuiApplication>

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace tavo::bench {

namespace {

constexpr std::size_t kUnits = 10'000;
constexpr int kRuns = 5;

struct Sample {
    const char* Script;
    std::u16string_view Phrase;
    char16_t First = 0; // instead of a phrase: from here on each character once
};

constexpr Sample kSamples[] = {
    {"Latin", u"Dinner with grandmother "},
    {"Latin with a sign of money", u"Dinner for 30 \u20AC with grandmother "},
    {"Combining marks", u"cre\u0300me bru\u0302le\u0301e for o\u0302\u0323ng "},
    {"Cyrillic", u"\u0423\u0436\u0438\u043D \u0441 \u0431\u0430\u0431\u0443\u0448\u043A\u043E\u0439 \u20AC "},
    {"Han and kana",
     u"\u4F1A\u8B70\u306F\u6765\u9031\u306E\u6708\u66DC\u65E5\u306B\u5909\u66F4\u3055\u308C\u307E\u3057"},
    {"Ideographs, each once", {}, 0x4E00},
    {"Hangul, each once", {}, 0xAC00},
    {"Hebrew", u"\u05D0\u05E8\u05D5\u05D7\u05EA \u05E2\u05E8\u05D1 \u05E2\u05DD \u05E1\u05D1\u05EA\u05D0 "},
    {"Arabic", u"\u0627\u0644\u0639\u0634\u0627\u0621 \u0645\u0639 \u0627\u0644\u062C\u062F\u0629 \u064A\u0648\u0645 "},
    {"Thai",
     u"\u0E2D\u0E32\u0E2B\u0E32\u0E23\u0E40\u0E22\u0E47\u0E19\u0E01\u0E31\u0E1A\u0E04\u0E38\u0E13\u0E22\u0E32\u0E22"},
    {"Devanagari", u"\u0928\u092E\u0938\u094D\u0924\u0947 \u0926\u0941\u0928\u093F\u092F\u093E "},
    {"Emoji", u"\U0001F469\u200D\U0001F467\U0001F44B\U0001F3FD\U0001F1E9\U0001F1EA\U0001F600"},
    {"Tabs and line feeds", u"Call\tMum\nsoon "},
};

std::u16string MakeText(const Sample& sample) {
    std::u16string text;
    while (text.size() < kUnits) {
        if (sample.Phrase.empty()) {
            text += static_cast<char16_t>(sample.First + text.size());
        } else {
            text += sample.Phrase;
        }
    }
    text.resize(kUnits);
    return text;
}

// Each time in another size: the toolkit knows no width of it yet.
long long MeasureOnce(const std::u16string& text, int run) {
    qt::Font font({u"Arial", -13 - run, 0, 400});
    static_cast<void>(font.LineHeight()); // loads it
    const long long begin = ReadProcessorTime();
    static_cast<void>(font.Ends(text));
    return ReadProcessorTime() - begin;
}

} // namespace

} // namespace tavo::bench

int main(int argc, char** argv) {
    using namespace tavo::bench;
    QGuiApplication application(argc, argv);
    if (!tavo::qt::PrepareFonts()) {
        std::fputs("there are no fonts\n", stderr);
        return 1;
    }
    for (const Sample& sample : kSamples) {
        const std::u16string text = MakeText(sample);
        std::vector<long long> runs;
        runs.reserve(kRuns);
        for (int run = 0; run < kRuns; ++run) {
            runs.push_back(MeasureOnce(text, run));
        }
        std::printf("%s\t%lld\n", sample.Script, Median(runs));
    }
    return 0;
}
