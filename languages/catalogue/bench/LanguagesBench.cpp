// How fast the languages are parsed and coloured: each over its sample, repeated to some 100,000 characters.
// The first row's column is the parse of the grammar alone, the second that with all that is injected, the
// third the captures of the whole text in the order in which they take effect.
#include "Tessarine/document/bench/Samples.h"
#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterParser.h"
#include "Tessarine/syntax/highlighting/HighlightCaptures.h"
#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/tests/ParsedSample.h"

#include <cstdio>

using namespace tessarine;
using namespace tessarine::languages;

namespace {

constexpr std::size_t textSize = 100'000;
constexpr int repetitions = 7;

std::u16string benchText(const CatalogueEntry& entry) {
    const std::u16string sample = sampleOf(entry);
    std::u16string text;
    while (text.size() < textSize)
        text += sample;
    return text;
}

template <class Work>
double megabytesPerSecond(const std::u16string& text, Work work) {
    Samples samples;
    for (int i = 0; i < repetitions; ++i)
        samples.measure(work);
    return static_cast<double>(text.size()) / samples.median() * 1e3;
}

void benchLanguage(const CatalogueEntry& entry) {
    const std::u16string text = benchText(entry);
    ParsedSample parsed(entry, text);
    TreeSitterParser parser(preferredUTF16Encoding);
    parser.setLanguage(treeSitterLanguage(entry.language)->languagePointer());
    const double root = megabytesPerSecond(text, [&] { (void)parser.parse(parsed.text(), nullptr); });
    const double layers = megabytesPerSecond(text, [&] { const ParsedSample again(entry, text); });
    std::size_t count = 0;
    const double captures = megabytesPerSecond(text, [&] {
        count = highlightCaptures(parsed.layers(), parsed.wholeRange(), parsed.text(), {}).size();
    });
    std::printf("%-16.*s %10.1f %10.1f %10.1f %10zu\n", static_cast<int>(entry.name.size()),
                entry.name.data(), root, layers, captures, count);
    std::fflush(stdout);
}

} // namespace

int main() {
    std::printf("%-16s %10s %10s %10s %10s\n", "million chars/s", "grammar", "document", "captures",
                "captures");
    for (const CatalogueEntry& entry : catalogueEntries())
        benchLanguage(entry);
}
