// All matches of literals and expressions in a generated file of 1,000,000 lines and 53 MB of C: ours, a
// plain scan of the bytes and ICU over a flat string as floors, `grep -c`, which is a process and reads the
// file, and other editors' search. Then what a replacement of all computes.
//
// Usage: search_bench [NAME COMMAND]...   each COMMAND is a peer: it gets the file's path as its last
// argument and prints "key|median|p99" in milliseconds.

#include "Tessarine/document/TextDecoder.h"
#include "Tessarine/document/bench/PeerTable.h"
#include "Tessarine/document/bench/SourceText.h"
#include "Tessarine/document/search/MatchFinder.h"
#include "Tessarine/document/search/ReplaceAll.h"
#include "Tessarine/document/search/bench/SearchWorkload.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unicode/regex.h>
#include <unicode/unistr.h>

using namespace tessarine;

namespace {

constexpr int rounds = 15;

TextStore load(const std::string& text) {
    return decodeText(std::as_bytes(std::span(text))).text;
}

std::optional<int> matchesOfOurs(const TextSnapshot& text, const SearchTask& task) {
    const std::string_view pattern = task.pattern;
    const SearchQuery query{std::u16string(pattern.begin(), pattern.end()), task.isRegularExpression,
                            task.isCaseSensitive};
    const auto matches = allMatches(text, query);
    return matches ? std::optional(static_cast<int>(matches->size())) : std::nullopt;
}

std::optional<int> matchesOfScan(std::string_view text, const SearchTask& task) {
    if (task.isRegularExpression || !task.isCaseSensitive) return std::nullopt;
    const std::string_view pattern = task.pattern;
    int matches = 0;
    while (const void* match = memmem(text.data(), text.size(), pattern.data(), pattern.size())) {
        const auto start = static_cast<std::size_t>(static_cast<const char*>(match) - text.data());
        text.remove_prefix(start + pattern.size());
        ++matches;
    }
    return matches;
}

std::optional<int> matchesOfICU(const icu::UnicodeString& text, const SearchTask& task) {
    UErrorCode status = U_ZERO_ERROR;
    const std::uint32_t flags = (task.isRegularExpression ? UREGEX_MULTILINE : UREGEX_LITERAL) |
                                (task.isCaseSensitive ? 0 : UREGEX_CASE_INSENSITIVE);
    icu::RegexMatcher matcher(icu::UnicodeString::fromUTF8(task.pattern), text, flags, status);
    int matches = 0;
    while (matcher.find(status))
        ++matches;
    return U_SUCCESS(status) ? std::optional(matches) : std::nullopt;
}

// The lines with a match, in the C locale: grep's best. No line has two.
std::optional<int> matchesOfGrep(const std::string& path, const SearchTask& task) {
    std::string command = "LC_ALL=C grep -c ";
    command += task.isRegularExpression ? "-E " : "-F ";
    if (!task.isCaseSensitive) command += "-i ";
    command += std::string("-- '") + task.pattern + "' '" + path + "'";
    FILE* output = popen(command.c_str(), "r");
    int lines = 0;
    const bool isCount = output && std::fscanf(output, "%d", &lines) == 1;
    if (output) pclose(output);
    return isCount ? std::optional(lines) : std::nullopt;
}

// How long a search through all of a text takes that has no match, by the size of the text.
void printGrowth() {
    constexpr SearchTask tasks[] = {searchTasks[0], searchTasks[9], searchTasks[10]};
    std::printf("\nms by characters, ours and ICU's\n");
    for (const int lines : {1'000, 10'000, 100'000, 1'000'000}) {
        const std::string text = sourceText(lines);
        const TextStore store = load(text);
        const auto flat = icu::UnicodeString::fromUTF8(text);
        for (const SearchTask& task : tasks) {
            const auto ours = measureMilliseconds(rounds, [&] { (void)matchesOfOurs(store.text(), task); });
            const auto icu = measureMilliseconds(rounds, [&] { (void)matchesOfICU(flat, task); });
            std::printf("%-42s %12zu %12.3f %12.3f\n", task.name, text.size(), ours.median, icu.median);
            const std::string row = std::string(task.name) + ", by characters";
            const auto size = static_cast<double>(text.size());
            bench::keep({row, "Tessarine", ours.median, ours.p99, "ms", size});
            bench::keep({row, "ICU, flat string", icu.median, icu.p99, "ms", size});
        }
    }
}

void printReplaceAll() {
    const TextStore store = load(sourceText(200'000));
    const SearchQuery query{u"(name)\\[[0-9]*[0-5]\\];", true, true};
    const ParsedReplacementString replacement = replacementFor(query, u"\\U$1 is $0");
    std::size_t count = 0;
    const Figure figure = measureMilliseconds(rounds, [&] {
        const auto set = replacementsOfAll(store.text(), query, replacement);
        count = set->replacements.size();
        (void)applyBatchReplacements(store.text(), *set);
    });
    std::printf("replacement of %zu matches in %.1f MB by a template, computed: %.1f ms (p99 %.1f)\n", count,
                static_cast<double>(store.length()) / 1e6, figure.median, figure.p99);
    bench::keep({"100,319 replacements by a template", "Tessarine", figure.median, figure.p99, "ms"});
}

} // namespace

int main(int argc, char** argv) {
    const std::string text = sourceText(1'000'000);
    const SharedFile file(text);
    if (!file.isWritten()) return 1;
    const TextStore store = load(text);
    const auto flat = icu::UnicodeString::fromUTF8(text);
    const auto measure = [](auto search, const auto& where) {
        return measureSearches(rounds, [&](const SearchTask& task) { return search(where, task); });
    };
    PeerTable table(measure(matchesOfOurs, store.text()));
    table.add("plain scan", measure(matchesOfScan, std::string_view(text)));
    table.add("ICU, flat string", measure(matchesOfICU, flat));
    table.add("grep -c", measure(matchesOfGrep, file.path()));
    for (int i = 1; i + 1 < argc; i += 2)
        table.add(argv[i], measurePeer(argv[i + 1], file.path()));
    std::printf("1,000,000 lines, %zu bytes. Milliseconds: median, p99, median against ours\n", text.size());
    table.printHead();
    for (const SearchTask& task : searchTasks)
        table.printRow(task.name, task.key);
    printReplaceAll();
    printGrowth();
    return 0;
}
