// What syntax costs beside the bare parsing library, which gets the same texts and edits in the same run:
// whole parses, keystrokes, the captures and the highlight of a line, memory.

#include "Tessarine/document/bench/BenchRow.h"
#include "Tessarine/document/bench/Workload.h"
#include "Tessarine/syntax/bench/BareParser.h"
#include "Tessarine/syntax/bench/BenchDocument.h"
#include "Tessarine/syntax/bench/SampleTexts.h"

#include <cstdio>
#include <malloc.h>
#include <string>
#include <thread>

using namespace tessarine;
using namespace std::chrono_literals;

namespace {

using Budget = std::optional<std::chrono::steady_clock::duration>;

double allocated() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

// Within a name behind the place, so that the text stays what its language allows.
std::int64_t insideOfName(const std::u16string& text, std::size_t from) {
    static constexpr std::u16string_view names[] = {u"compute", u"pattern", u"Text of", u"Some *text",
                                                    u"function"};
    std::size_t first = std::u16string::npos;
    for (const std::u16string_view name : names)
        first = std::min(first, text.find(name, std::min(from, text.size() - 2'000)));
    return static_cast<std::int64_t>(first) + 2;
}

void benchParses(const std::string& name, const std::u16string& text, std::string_view language, int count) {
    const TSLanguage* grammar = SampleLanguages::shared()->treeSitterLanguage(language)->languagePointer();
    BareParser bare(text, grammar);
    Samples bareSamples;
    const double before = allocated();
    for (int i = 0; i < count; ++i)
        bareSamples.measure([&] { bare.parse(); });
    const double bareMemory = allocated() - before;
    bare.forget();
    BenchDocument document(text, language, {});
    Samples samples;
    const double beforeOurs = allocated();
    for (int i = 0; i < count; ++i)
        samples.measure([&] { document.mode->parse(document.stringView->snapshot()); });
    const double memory = allocated() - beforeOurs;
    printRow("parse " + name, samples, milliseconds, "ms");
    printLibraryRow("without what is injected", bareSamples, milliseconds, "ms");
    std::printf("%-58s %10.1f %10.1f  bytes a character, ours and the library's\n", "  memory of the trees",
                memory / static_cast<double>(text.size()), bareMemory / static_cast<double>(text.size()));
}

// `count` pairs of a character typed and taken back.
void benchKeystrokes(const std::string& name, const std::u16string& text, std::string_view language,
                     Budget budget, std::size_t from, int count) {
    const TSLanguage* grammar = SampleLanguages::shared()->treeSitterLanguage(language)->languagePointer();
    BareParser bare(text, grammar);
    bare.parse();
    BenchDocument document(text, language, budget);
    document.mode->parse(document.stringView->snapshot());
    const std::int64_t at = insideOfName(text, from);
    Samples samples;
    Samples bareSamples;
    for (int i = 0; i < 2 * count; ++i) {
        const auto change = document.changeText(at, i % 2 == 0);
        samples.measure([&] { (void)document.mode->textDidChange(change); });
        while (document.executor->taskCount() > 0)
            document.executor->runNext();
        if (budget) continue;
        bare.changeText(static_cast<std::size_t>(at), i % 2 == 0);
        bareSamples.measure([&] { bare.reparse(rawEdit(change)); });
    }
    document.settle();
    printRow("keystroke " + name, samples, microseconds, "us");
    if (!budget) printLibraryRow("without what is injected", bareSamples, microseconds, "us");
}

void benchKeystrokesInPlaces(const std::string& name, const std::u16string& text, std::string_view language,
                             Budget budget, int count) {
    benchKeystrokes(name + ", at the start", text, language, budget, 0, count);
    benchKeystrokes(name + ", in the middle", text, language, budget, text.size() / 2, count);
    benchKeystrokes(name + ", at the end", text, language, budget, text.size(), count);
}

// Every two milliseconds another character, while the background parses.
void benchTyping(const std::string& name, const std::u16string& text, std::string_view language,
                 std::int64_t at) {
    BenchDocument document(text, language, 1ms);
    document.mode->parse(document.stringView->snapshot());
    Samples samples;
    Samples captures;
    for (int i = 0; i < 500; ++i) {
        const auto change = document.changeText(at++, true);
        samples.measure([&] { (void)document.mode->textDidChange(change); });
        captures.measure([&] { (void)document.mode->captures({ByteCount::ofCodeUnits(at - 40), 160}); });
        std::this_thread::sleep_for(2ms);
        while (document.executor->taskCount() > 0)
            samples.measure([&] { document.executor->runNext(); });
    }
    printRow("typing " + name + ", edits and completions", samples, microseconds, "us");
    printRow("  captures of the line typed in", captures, microseconds, "us");
    const auto start = std::chrono::steady_clock::now();
    document.settle();
    std::printf("%-58s %10.1f %10s  ms\n", "  until all is parsed after the last",
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count(),
                "");
}

void benchTypingInWord(const std::string& name, const std::u16string& text, std::string_view language) {
    benchTyping(name, text, language, insideOfName(text, text.size() / 2));
}

void benchCaptures(const std::string& name, const std::u16string& text, std::string_view language) {
    const auto sample = SampleLanguages::shared()->treeSitterLanguage(language);
    BenchDocument document(text, language, {});
    document.mode->parse(document.stringView->snapshot());
    BareParser bare(text, sample->languagePointer());
    bare.parse();
    WorkloadRandom random;
    Samples samples;
    Samples bareSamples;
    for (int i = 0; i < 5'000; ++i) {
        const auto& line = document.lineManager->lineAtRow(random(document.lineManager->lineCount()));
        const ByteRange range{line.data().startByte(), line.data().byteCount()};
        samples.measure([&] { (void)document.mode->captures(range); });
        bareSamples.measure([&] {
            TSQueryCursor* cursor = ts_query_cursor_new();
            ts_query_cursor_set_byte_range(
                cursor, static_cast<std::uint32_t>(range.location.value()),
                static_cast<std::uint32_t>((range.location + range.length).value()));
            ts_query_cursor_exec(cursor, sample->internalLanguage()->highlightsQuery->pointer(),
                                 ts_tree_root_node(bare.tree()));
            TSQueryMatch match;
            while (ts_query_cursor_next_match(cursor, &match)) {
            }
            ts_query_cursor_delete(cursor);
        });
    }
    printRow("captures of a line, " + name, samples, microseconds, "us");
    printLibraryRow("without predicates and what is injected", bareSamples, microseconds, "us");
}

LineSyntaxHighlighterInput lineOf(const BenchDocument& document, std::int64_t row) {
    const auto& line = document.lineManager->lineAtRow(row);
    return {.attributedString = std::make_shared<AttributedString>(
                document.stringView->substring(line.location(), line.data().totalLength())),
            .byteRange = {line.data().startByte(), line.data().byteCount()}};
}

void benchHighlights(const std::string& name, const std::u16string& text, std::string_view language,
                     int count) {
    BenchDocument document(text, language, {});
    document.mode->parse(document.stringView->snapshot());
    const auto highlighter = document.mode->createLineSyntaxHighlighter();
    WorkloadRandom random;
    Samples samples;
    Samples again;
    for (int i = 0; i < count; ++i) {
        const auto input = lineOf(document, random(document.lineManager->lineCount()));
        samples.measure([&] {
            highlighter->setDefaultAttributes(*input.attributedString);
            highlighter->syntaxHighlight(input);
        });
        again.measure([&] { highlighter->syntaxHighlight(input); });
    }
    printRow("highlight of a line, " + name, samples, microseconds, "us");
    printRow("  over the attributes of the last", again, microseconds, "us");
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view only = argc > 1 ? argv[1] : "";
    const auto isWanted = [only](std::string_view group) { return only.empty() || only == group; };
    constexpr std::size_t mega = 1'000'000;
    std::printf("%-58s %10s %10s\n", "", "median", "p99");
    if (isWanted("parses")) {
        benchParses("1 MB of C", SampleTexts::c(mega), "c", 9);
        benchParses("10 MB of C", SampleTexts::c(10 * mega), "c", 3);
        benchParses("1 MB of JavaScript", SampleTexts::javaScript(mega), "javascript", 9);
        benchParses("10 MB of JavaScript", SampleTexts::javaScript(10 * mega), "javascript", 3);
        benchParses("1 MB of Markdown", SampleTexts::markdown(mega), "markdown", 5);
        benchParses("10 MB of Markdown", SampleTexts::markdown(10 * mega), "markdown", 1);
    }
    if (isWanted("keystrokes")) {
        benchKeystrokesInPlaces("in 100 KB of C", SampleTexts::c(mega / 10), "c", {}, 500);
        benchKeystrokesInPlaces("in 1 MB of C", SampleTexts::c(mega), "c", {}, 200);
        benchKeystrokesInPlaces("in 10 MB of C", SampleTexts::c(10 * mega), "c", {}, 20);
    }
    if (isWanted("injections")) {
        benchKeystrokesInPlaces("in a page of 500 scripts", SampleTexts::page(500), "html", {}, 200);
        benchKeystrokesInPlaces("in 1 MB of JavaScript", SampleTexts::javaScript(mega), "javascript", {},
                                100);
        benchKeystrokesInPlaces("in 1 MB of Markdown", SampleTexts::markdown(mega), "markdown", {}, 20);
    }
    if (isWanted("captures")) {
        benchCaptures("10 MB of C", SampleTexts::c(10 * mega), "c");
        benchCaptures("1 MB of JavaScript", SampleTexts::javaScript(mega), "javascript");
        benchCaptures("a page of 500 scripts", SampleTexts::page(500), "html");
        benchCaptures("1 MB of Markdown", SampleTexts::markdown(mega), "markdown");
    }
    if (isWanted("highlights")) {
        benchHighlights("10 MB of C", SampleTexts::c(10 * mega), "c", 5'000);
        benchHighlights("1 MB of JavaScript", SampleTexts::javaScript(mega), "javascript", 5'000);
        benchHighlights("1 MB of C on one line", SampleTexts::oneLine(mega), "c", 5);
    }
    if (isWanted("typing")) {
        benchTypingInWord("with 1 ms in 10 MB of Markdown", SampleTexts::markdown(10 * mega), "markdown");
        benchTypingInWord("with 1 ms in 50 MB of C", SampleTexts::c(50 * mega), "c");
        benchTyping("with 1 ms in 100,000 brackets", SampleTexts::brackets(100'000), "javascript", 100'000);
        benchTypingInWord("with 1 ms in 10 MB of C on one line", SampleTexts::oneLine(10 * mega), "c");
    }
}
