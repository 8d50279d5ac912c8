// What the line index costs: building it, finding lines, and following edits, beside a std::vector of line
// starts as the peer. Edits are timed without the text store's own work.

#include "Tessarine/document/LineBreakScanner.h"
#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/bench/Workload.h"
#include "tools/bench/Record.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <random>

using namespace tessarine;

namespace {

using Starts = std::vector<std::int64_t>;

// C-like lines of 50 code units in the middle, none shorter than 8.
std::u16string generatedText(std::int64_t lines, std::int64_t meanLength) {
    static constexpr std::u16string_view source = u"    for (size_t i = 0; i < count; ++i) total += "
                                                  u"rows[i].weight * scale(rows[i].height, 0.5); /* sum */ ";
    std::mt19937_64 random(7);
    std::u16string text;
    text.reserve(static_cast<std::size_t>(lines * (meanLength + 1)));
    for (std::int64_t line = 1; line < lines; ++line) {
        const std::size_t length = 8 + random() % static_cast<std::size_t>(2 * (meanLength - 8) - 1);
        text += source.substr(0, length - 1);
        text += u'\n';
    }
    return text += u"int last;";
}

Starts startsOf(std::u16string_view text) {
    Starts starts{0};
    LineBreakScanner scanner;
    const auto add = [&](LineBreak lineBreak) { starts.push_back(lineBreak.end()); };
    scanner.scan(std::span<const char16_t>(text), add);
    scanner.finish(add);
    return starts;
}

void print(const char* what, Samples& ours, Samples& peers) {
    std::printf("  %-44s %10.0f %10.0f %14.0f %10.0f\n", what, ours.median(), ours.p99(), peers.median(),
                peers.p99());
    bench::keep({what, "Tessarine", ours.median(), ours.p99(), "ns"});
    bench::keep({what, "array of starts", peers.median(), peers.p99(), "ns"});
}

void print(const char* what, Samples& ours) {
    std::printf("  %-44s %10.0f %10.0f\n", what, ours.median(), ours.p99());
    bench::keep({what, "Tessarine", ours.median(), ours.p99(), "ns"});
}

enum class Kind { character, lineBreak };
enum class Order { insertionFirst, removalFirst };

// One code unit that comes and one that goes, close by: the text between them moves by one and the rest
// stays, so that no store has to be paid for. The first of the two meets cold caches and is the one timed.
struct EditPair {
    std::int64_t inserted;
    std::int64_t removed;
    std::u16string_view text;
};

// In the lines behind a row, in a text that starts there as `starts` tells.
EditPair editPair(const Starts& starts, std::size_t row, Kind kind, Order order) {
    const std::int64_t first = starts[row] + 1;
    if (kind == Kind::character) {
        const std::int64_t second = starts[row + 1] + 1;
        return order == Order::insertionFirst ? EditPair{first, second, u"x"} : EditPair{second, first, u"x"};
    }
    if (order == Order::insertionFirst) return {first, starts[row + 2] - 1, u"\n"};
    return {starts[row + 2] - 2, starts[row + 1] - 1, u"\n"};
}

// Moves the text as both edits of the pair together do.
void apply(const EditPair& pair, StringView& stringView) {
    if (pair.inserted < pair.removed) {
        const std::int64_t length = pair.removed - pair.inserted;
        std::u16string window = stringView.substring(pair.inserted, length);
        stringView.replaceCharacters(pair.inserted, length + 1, window.insert(0, pair.text));
    } else {
        const std::int64_t length = pair.inserted - pair.removed;
        std::u16string window = stringView.substring(pair.removed + 1, length);
        stringView.replaceCharacters(pair.removed, length + 1, window.append(pair.text));
    }
}

// Every eighth row in random order: pairs there do not touch each other's lines.
std::vector<std::size_t> rowsToEdit(std::size_t lines, std::size_t most) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 0; row + 8 < lines; row += 8)
        rows.push_back(row);
    std::ranges::shuffle(rows, std::mt19937_64(13));
    rows.resize(std::min(rows.size(), most));
    return rows;
}

// After all edits the lines must be those of the text.
void verify(const LineManager& manager, const StringView& stringView) {
    auto lines = manager.documentLineTree().iterator();
    std::int64_t start = 0;
    for (const std::int64_t expected : startsOf(stringView.string())) {
        const DocumentLineNode* line = lines.next();
        if (!line || start != expected) std::abort();
        start += line->value();
    }
    if (lines.next()) std::abort();
}

Samples timeLineManager(std::u16string_view text, const Starts& starts, std::size_t pairs, Kind kind,
                        Order order) {
    Samples samples(pairs);
    const auto stringView = std::make_shared<StringView>(text);
    LineManager manager(stringView);
    manager.rebuild(text);
    for (const std::size_t row : rowsToEdit(starts.size(), pairs)) {
        const EditPair pair = editPair(starts, row, kind, order);
        apply(pair, *stringView);
        if (order == Order::insertionFirst) {
            samples.measure([&] { benchmark::DoNotOptimize(manager.insertText(pair.text, pair.inserted)); });
            manager.removeCharacters(pair.removed + 1, 1);
        } else {
            samples.measure([&] { benchmark::DoNotOptimize(manager.removeCharacters(pair.removed, 1)); });
            manager.insertText(pair.text, pair.inserted);
        }
    }
    verify(manager, *stringView);
    return samples;
}

// The peer: all starts behind the place move.
Samples timeStarts(Starts starts, std::size_t pairs, Kind kind, Order order) {
    Samples samples(pairs);
    const bool isInsertion = order == Order::insertionFirst;
    for (const std::size_t row : rowsToEdit(starts.size(), pairs)) {
        const std::int64_t location = starts[std::min(row, starts.size() - 2)] + 1; // removals shorten them
        samples.measure([&] {
            auto next = std::ranges::upper_bound(starts, location);
            if (kind == Kind::lineBreak)
                next = isInsertion ? starts.insert(next, location) : starts.erase(next);
            for (; next != starts.end(); ++next)
                *next += isInsertion ? 1 : -1;
        });
    }
    return samples;
}

void benchRebuild(const std::u16string& text) {
    const std::vector<unsigned char> bytes(text.begin(), text.end());
    const TextRun narrow(0, std::span<const std::uint8_t>(bytes));
    Samples wideBuild;
    Samples narrowBuild;
    Samples startsBuild;
    double bytesPerLine = 0;
    for (int round = 0; round < 9; ++round) {
        const double before = residentBytes();
        auto manager = std::make_unique<LineManager>(std::make_shared<StringView>());
        wideBuild.measure([&] { manager->rebuild(text); });
        // Later rounds reuse memory of the ones before.
        if (round == 0) bytesPerLine = (residentBytes() - before) / static_cast<double>(manager->lineCount());
        manager = std::make_unique<LineManager>(std::make_shared<StringView>());
        narrowBuild.measure([&] { manager->rebuild(std::span(&narrow, 1)); });
        startsBuild.measure([&] { benchmark::DoNotOptimize(startsOf(text)); });
    }
    print("rebuild, UTF-16 (peer: line starts)", wideBuild, startsBuild);
    print("rebuild, bytes", narrowBuild);
    std::printf("  %-44s %10.1f\n", "resident bytes a line", bytesPerLine);
}

template <class Key, class Look, class Peer>
void benchLook(const char* what, const std::vector<Key>& keys, Look look, Peer peer) {
    Samples ours(keys.size());
    Samples peers(keys.size());
    for (const Key& key : keys)
        ours.measure([&] { benchmark::DoNotOptimize(look(key)); });
    for (const Key& key : keys)
        peers.measure([&] { benchmark::DoNotOptimize(peer(key)); });
    print(what, ours, peers);
}

void benchLookUps(const std::u16string& text) {
    LineManager manager(std::make_shared<StringView>());
    manager.rebuild(text);
    const Starts starts = startsOf(text);
    std::mt19937_64 random(11);
    std::vector<std::int64_t> locations(1'000'000);
    std::vector<std::int64_t> rows(locations.size());
    std::vector<double> offsets(locations.size());
    for (std::size_t i = 0; i < locations.size(); ++i) {
        locations[i] = static_cast<std::int64_t>(random() % text.size());
        rows[i] = static_cast<std::int64_t>(random() % starts.size());
        offsets[i] = 12.0 * static_cast<double>(random() % starts.size()) + 5;
    }
    const auto rowOf = [&](std::int64_t location) {
        return std::ranges::upper_bound(starts, location) - starts.begin() - 1;
    };
    benchLook(
        "line containing a location", locations, [&](auto key) { return &manager.lineContaining(key); },
        rowOf);
    benchLook(
        "row and column of a location", locations, [&](auto key) { return manager.linePosition(key); },
        rowOf);
    benchLook(
        "line at a row, and its location", rows, [&](auto key) { return manager.lineAtRow(key).location(); },
        [&](auto key) { return starts[static_cast<std::size_t>(key)]; });
    benchLook(
        "line at a row", rows, [&](auto key) { return &manager.lineAtRow(key); },
        [&](auto key) { return starts[static_cast<std::size_t>(key)]; });
    benchLook(
        "line at a y offset (peer: equal heights)", offsets,
        [&](auto key) { return manager.lineContainingYOffset(key); },
        [&](auto key) { return starts[static_cast<std::size_t>(key / 12.0)]; });
}

void benchEdits(std::u16string_view text, std::size_t pairs, std::size_t peerPairs, const std::string& name) {
    const Starts starts = startsOf(text);
    for (const Kind kind : {Kind::character, Kind::lineBreak})
        for (const Order order : {Order::insertionFirst, Order::removalFirst}) {
            Samples ours = timeLineManager(text, starts, pairs, kind, order);
            Samples peers = timeStarts(starts, peerPairs, kind, order);
            const std::string what = name + (kind == Kind::lineBreak ? ", a line break " : ", a character ") +
                                     (order == Order::insertionFirst ? "in" : "out");
            print(what.c_str(), ours, peers);
        }
}

} // namespace

int main() {
    std::printf("nanoseconds%36s %10s %10s %14s %10s\n", "", "median", "p99", "peer median", "p99");
    {
        const std::u16string text = generatedText(1'000'000, 50);
        std::printf("1,000,000 lines, %zu code units\n", text.size());
        benchRebuild(text);
        benchLookUps(text);
        benchEdits(text, 10'000, 200, "1,000,000 lines");
    }
    std::printf("edits by size\n");
    benchEdits(generatedText(1'000, 24), 2'000, 50, "1,000");
    benchEdits(generatedText(10'000, 24), 2'000, 50, "10,000");
    benchEdits(generatedText(100'000, 24), 2'000, 50, "100,000");
    benchEdits(generatedText(1'000'000, 24), 2'000, 50, "1,000,000");
    benchEdits(generatedText(10'000'000, 24), 2'000, 50, "10,000,000");
    return 0;
}
