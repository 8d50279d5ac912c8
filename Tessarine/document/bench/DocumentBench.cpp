// The document, text store and line index together, beside other editors' on the same generated file of
// 1,000,000 lines and 50 MB of C, in one run.
//
// Usage: document_bench [NAME COMMAND]...   each COMMAND is a peer: it gets the file's path as its last
// argument and prints "key|median|p99" in the units below.

#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/document/TextDecoder.h"
#include "Tessarine/document/bench/PeerTable.h"
#include "Tessarine/document/bench/SourceText.h"
#include "Tessarine/document/bench/Workload.h"

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using namespace tessarine;

namespace {

// Text and lines as the engine keeps them.
class Document {
public:
    explicit Document(std::span<const std::byte> bytes)
        : m_stringView(std::make_shared<StringView>(decodeText(bytes).text))
        , m_lineManager(m_stringView) {
        m_lineManager.rebuild();
    }

    std::int64_t length() const { return m_stringView->length(); }

    std::int64_t lineCount() const { return m_lineManager.lineCount(); }

    std::int64_t lineOf(std::int64_t location) const { return m_lineManager.linePosition(location)->row; }

    std::int64_t locationOf(std::int64_t row) const { return m_lineManager.lineAtRow(row).location(); }

    std::int64_t lineAtHeight(std::int64_t row) const {
        return m_lineManager.lineContainingYOffset(static_cast<double>(row) * 12 + 5)->value();
    }

    void insert(std::int64_t location, char16_t character) {
        const std::u16string_view text(&character, 1);
        m_stringView->replaceCharacters(location, 0, text);
        m_lineManager.insertText(text, location);
    }

    void remove(std::int64_t location) {
        m_stringView->replaceCharacters(location, 1, {});
        m_lineManager.removeCharacters(location, 1);
    }

    std::int64_t textMemory() const { return m_stringView->snapshot().memory(); }

private:
    std::shared_ptr<StringView> m_stringView;
    LineManager m_lineManager;
};

Figures measureOurs(const std::string& text) {
    Figures figures;
    const auto keep = [&](const std::string& key, Samples& samples, double divisor) {
        figures[key] = {samples.median() / divisor, samples.p99() / divisor};
    };
    std::unique_ptr<Document> document;
    Samples loads;
    const double before = residentBytes();
    for (int i = 0; i < 9; ++i) {
        document.reset();
        loads.measure([&] { document = std::make_unique<Document>(std::as_bytes(std::span(text))); });
        if (i > 0) continue;
        const double resident = residentBytes() - before;
        const auto length = static_cast<double>(document->length());
        const auto textMemory = static_cast<double>(document->textMemory());
        figures["memory"] = {resident / length, 0};
        figures["textMemory"] = {textMemory / length, 0};
        figures["lineMemory"] = {(resident - textMemory) / static_cast<double>(document->lineCount()), 0};
    }
    keep("load", loads, 1e6);
    WorkloadRandom random;
    auto heights =
        timeLookUps(random, document->lineCount(), [&](auto row) { return document->lineAtHeight(row); });
    keep("lineAtHeight", heights, 1);
    workThrough(*document, 10'000, keep);
    return figures;
}

using Peers = std::vector<std::pair<std::string, std::string>>; // names and commands

void addPeers(PeerTable& table, const Peers& peers, const std::string& text) {
    const SharedFile file(text);
    if (!file.isWritten()) return;
    for (const auto& [name, command] : peers)
        table.add(name, measurePeer(command, file.path()));
}

void keepGrowth(const PeerTable& table, int lines) {
    table.keepRow("random edit by lines, ns", "randomEdit", lines);
    table.keepRow("keystroke by lines, ns", "keystroke", lines);
}

// How the time of an edit grows with the document; beyond 100,000 lines that of ours alone.
void printGrowth(const Peers& peers) {
    std::printf(
        "\nns an edit by lines                             random: median     p99    keystroke: median\n");
    for (const int lines : {1'000, 10'000, 100'000, 1'000'000, 10'000'000}) {
        const std::string text = sourceText(lines);
        Document document(std::as_bytes(std::span(text)));
        Figures figures;
        workThrough(document, 10'000, [&](const std::string& key, Samples& samples, double) {
            figures[key] = {samples.median(), samples.p99()};
        });
        std::printf("%42d %19.0f %7.0f %20.0f\n", lines, figures["randomEdit"].median,
                    figures["randomEdit"].p99, figures["keystroke"].median);
        PeerTable table(figures);
        if (lines <= 100'000) addPeers(table, peers, text);
        keepGrowth(table, lines);
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::string text = sourceText(1'000'000);
    Peers peers;
    for (int i = 1; i + 1 < argc; i += 2)
        peers.emplace_back(argv[i], argv[i + 1]);
    std::printf("1,000,000 lines, %zu bytes. Columns: median, p99, median against ours\n", text.size());
    PeerTable table(measureOurs(text));
    addPeers(table, peers, text);
    keepGrowth(table, 1'000'000);
    table.printHead();
    table.printRow("load from UTF-8 in memory, ms", "load");
    table.printRow("random edit, ns", "randomEdit");
    table.printRow("keystroke at one place, ns", "keystroke");
    table.printRow("row of a location, ns", "lineOfLocation");
    table.printRow("location of a row, ns", "locationOfLine");
    table.printRow("line at a y offset, ns", "lineAtHeight");
    table.printRow("resident bytes a character, all in all", "memory");
    table.printRow("  of them text, bytes a character", "textMemory");
    table.printRow("  of them lines, bytes a line", "lineMemory");
    printGrowth(peers);
    return 0;
}
