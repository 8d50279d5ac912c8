// How fast the languages are parsed and coloured: each over its sample, repeated to some 100,000 characters.
// The first row's column is the parse of the grammar alone, the second that with all that is injected, the
// third the captures of the whole text in the order in which they take effect. Ends with 1 where not all
// copies of a sample have been coloured, as behind an end of the program.
#include "Tessarine/document/bench/Samples.h"
#include "Tessarine/syntax/PreferredUtf16Encoding.h"
#include "Tessarine/syntax/TreeSitterParser.h"
#include "Tessarine/syntax/highlighting/HighlightCaptures.h"
#include "languages/catalogue/Catalogue.h"
#include "languages/catalogue/tests/ParsedSample.h"
#include "tools/bench/Record.h"

#include <algorithm>
#include <cstdio>
#include <string>

using namespace tessarine;
using namespace tessarine::languages;

namespace {

constexpr std::size_t textSize = 100'000;
constexpr int repetitions = 7;

// A sample without what would end the program in front of the next copy, or with what ends a document before
// the directives of the next.
std::u16string repeatableSample(const CatalogueEntry& entry) {
    std::u16string sample = sampleOf(entry);
    if (entry.language == Language::Perl) return sample.substr(0, sample.find(u"__DATA__"));
    if (entry.language == Language::YAML) return sample + u"...\n";
    return sample;
}

std::size_t captureCount(ParsedSample& parsed) {
    return highlightCaptures(parsed.layers(), parsed.wholeRange(), parsed.text(), {}).size();
}

// A copy may lose a little to what stands around it.
bool isColouredWhole(const CatalogueEntry& entry, const std::u16string& sample, const std::u16string& text,
                     std::size_t count) {
    ParsedSample once(entry, sample);
    const std::size_t expected = captureCount(once) * (text.size() / sample.size());
    if (count * 10 >= expected * 9) return true;
    std::fprintf(stderr, "%.*s: %zu captures where %zu were due\n", static_cast<int>(entry.name.size()),
                 entry.name.data(), count, expected);
    return false;
}

template <class Work>
double megabytesPerSecond(const std::u16string& text, Work work) {
    Samples samples;
    for (int i = 0; i < repetitions; ++i)
        samples.measure(work);
    return static_cast<double>(text.size()) / samples.median() * 1e3;
}

bool benchLanguage(const CatalogueEntry& entry) {
    const std::u16string sample = repeatableSample(entry);
    std::u16string text;
    while (text.size() < textSize)
        text += sample;
    ParsedSample parsed(entry, text);
    TreeSitterParser parser(preferredUTF16Encoding);
    parser.setLanguage(treeSitterLanguage(entry.language)->languagePointer());
    const double root = megabytesPerSecond(text, [&] { (void)parser.parse(parsed.text(), nullptr); });
    const double layers = megabytesPerSecond(text, [&] { const ParsedSample again(entry, text); });
    std::size_t count = 0;
    const double captures = megabytesPerSecond(text, [&] { count = captureCount(parsed); });
    std::printf("%-16.*s %10.1f %10.1f %10.1f %10zu\n", static_cast<int>(entry.name.size()),
                entry.name.data(), root, layers, captures, count);
    std::fflush(stdout);
    const std::string name(entry.name);
    bench::keep({name, "grammar", root, root, "M characters/s"});
    bench::keep({name, "document", layers, layers, "M characters/s"});
    bench::keep({name, "captures", captures, captures, "M characters/s"});
    return isColouredWhole(entry, sample, text, count);
}

} // namespace

int main() {
    std::printf("%-16s %10s %10s %10s %10s\n", "million chars/s", "grammar", "document", "captures",
                "captures");
    const auto wrong =
        std::ranges::count_if(catalogueEntries(), [](const auto& entry) { return !benchLanguage(entry); });
    return wrong == 0 ? 0 : 1;
}
