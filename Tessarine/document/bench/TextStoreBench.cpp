// What the text store costs on 50 MB of ASCII, beside a plain std::u16string in the same run: the floor for
// reading, the counterexample for inserting. Single steps are timed one by one; the clock's own share is
// told.

#include "Tessarine/document/StringView.h"
#include "Tessarine/document/TextDecoder.h"
#include "Tessarine/document/TextEncoder.h"
#include "tools/bench/Record.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <malloc.h>
#include <random>
#include <string>
#include <vector>

using namespace tessarine;

namespace {

constexpr std::size_t textBytes = 50'000'000;
constexpr int loads = 15;
constexpr int reads = 9;
constexpr int edits = 10'000;
constexpr int plainEdits = 200;

using Clock = std::chrono::steady_clock;

template <typename Body>
double nanosecondsOf(Body&& body) {
    const auto start = Clock::now();
    body();
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count();
}

template <typename Body>
std::vector<double> measure(int count, Body&& body) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i)
        times.push_back(nanosecondsOf(body));
    std::ranges::sort(times);
    return times;
}

// The times in the unit that `divisor` nanoseconds make.
void print(const char* name, const std::vector<double>& sorted, double divisor, const char* unit) {
    const auto at = [&](double quantile) {
        return sorted[static_cast<std::size_t>(quantile * static_cast<double>(sorted.size() - 1) + 0.5)] /
               divisor;
    };
    std::printf("%-46s %12.3f %12.3f  %s\n", name, at(0.5), at(0.99), unit);
    bench::keep({name, "Tessarine", at(0.5), at(0.99), unit});
}

void printNumber(const char* name, double value, const char* unit) {
    std::printf("%-46s %12.3f %12s  %s\n", name, value, "", unit);
    bench::keep({name, "Tessarine", value, value, unit});
}

std::string sourceText() {
    std::mt19937_64 random(1);
    std::string text;
    text.reserve(textBytes + 200);
    for (int line = 0; text.size() < textBytes; ++line) {
        const std::string number = std::to_string(random() % 100'000);
        text += std::string(4 * (random() % 4), ' ');
        if (line % 12 == 0)
            text += "static int function" + number + "(const char *name, size_t length) {\n";
        else if (line % 12 == 11)
            text += "}\n\n";
        else
            text +=
                "if (value[" + number + "] != 0x" + number + ") result += compute(name, " + number + ");\n";
    }
    text.resize(textBytes);
    return text;
}

// Bytes that the allocator has given out and not got back.
double allocated() {
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

TextStore load(const std::string& bytes) {
    return decodeText(std::as_bytes(std::span(bytes))).text;
}

void benchLoading(const std::string& bytes) {
    std::vector<double> times;
    for (int i = 0; i < loads; ++i) {
        TextStore store;
        times.push_back(nanosecondsOf([&] { store = load(bytes); }));
    }
    printNumber("load 50 MB of ASCII as UTF-8, first time", times.front() / 1e6, "ms");
    std::ranges::sort(times);
    print("  again, in memory that was used before", times, 1e6, "ms");
    print("  plain: widen into a string",
          measure(loads, [&] { const std::u16string text(bytes.begin(), bytes.end()); }), 1e6, "ms");
    const TextStore store = load(bytes);
    std::size_t written = 0;
    print("encode it as UTF-8",
          measure(reads,
                  [&] {
                      (void)encodeText(store.text(), {},
                                       [&](std::span<const std::byte> piece) { written += piece.size(); });
                  }),
          1e6, "ms");
}

// `at` gives the place of the next edit from the length.
template <typename At>
void benchEdits(const char* name, StringView& view, std::int64_t length, std::u16string_view text, At&& at) {
    print(name, measure(edits, [&] { view.replaceCharacters(at(view.length()), length, text); }), 1, "ns");
}

void benchEditing(StringView& view, std::u16string& plain) {
    std::mt19937_64 random(2);
    const auto anywhere = [&](std::int64_t length) {
        return static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(length));
    };
    print("(two readings of the clock)", measure(edits, [] {}), 1, "ns");
    benchEdits("random insert of a character", view, 0, u"x", anywhere);
    benchEdits("random delete of a character", view, 1, u"", anywhere);
    print("  plain: random insert",
          measure(plainEdits, [&] { plain.insert(static_cast<std::size_t>(anywhere(textBytes)), 1, u'x'); }),
          1, "ns");
    std::int64_t place = anywhere(view.length());
    benchEdits("sequential keystroke", view, 0, u"k", [&](std::int64_t) { return place++; });
    const double all = nanosecondsOf([&] {
        for (int i = 0; i < edits; ++i)
            view.replaceCharacters(place++, 0, u"k");
    });
    printNumber("  the same, mean of 10,000 in a row", all / edits, "ns");
    benchEdits("sequential backspace", view, 1, u"", [&](std::int64_t) { return --place; });
    TextSnapshot kept;
    print("snapshot and the random insert behind it",
          measure(edits,
                  [&] {
                      kept = view.snapshot();
                      view.replaceCharacters(anywhere(view.length()), 0, u"x");
                  }),
          1, "ns");
}

void benchMemory(const std::string& bytes) {
    const double before = allocated();
    TextStore store = load(bytes);
    const auto printMemory = [&](const char* name, const char* allocatorName) {
        printNumber(name, static_cast<double>(store.text().memory()) / static_cast<double>(store.length()),
                    "bytes");
        printNumber(allocatorName, (allocated() - before) / static_cast<double>(store.length()), "bytes");
    };
    printMemory("memory of a character, loaded", "  as the allocator counts");
    std::mt19937_64 random(3);
    for (int i = 0; i < 1'000'000; ++i) {
        const auto at = static_cast<std::int64_t>(random() % static_cast<std::uint64_t>(store.length() - 1));
        store.replace(at, i % 2, i % 2 ? u"" : u"x");
    }
    printMemory("memory of a character, a million edits later", "  as the allocator counts");
}

void benchReading(const StringView& view, const std::u16string& plain) {
    std::int64_t sum = 0;
    print("read all through bytesAt",
          measure(reads,
                  [&] {
                      for (ByteCount at = 0; const auto piece = view.bytesAt(at);) {
                          sum += static_cast<std::int64_t>(piece->bytes[0]);
                          at += piece->length;
                      }
                  }),
          1e6, "ms");
    print("  plain: the same pieces copied",
          measure(reads,
                  [&] {
                      for (std::size_t at = 0; at < plain.size(); at += 2048) {
                          const std::size_t size = std::min<std::size_t>(2048, plain.size() - at) * 2;
                          auto piece = std::make_unique_for_overwrite<std::byte[]>(size);
                          std::memcpy(piece.get(), &plain[at], size);
                          sum += static_cast<std::int64_t>(piece[0]);
                      }
                  }),
          1e6, "ms");
    const auto units = static_cast<double>(view.length());
    print("characterAt, neighbour by neighbour",
          measure(reads,
                  [&] {
                      for (std::int64_t at = 0; at < view.length(); ++at)
                          sum += view.characterAt(at);
                  }),
          units, "ns");
    std::mt19937_64 random(4);
    print("characterAt anywhere",
          measure(edits, [&] { sum += view.characterAt(static_cast<std::int64_t>(random() % textBytes)); }),
          1, "ns");
    print("composedRange anywhere",
          measure(edits,
                  [&] { sum += view.composedRange(static_cast<std::int64_t>(random() % textBytes)).length; }),
          1, "ns");
    std::printf("(sum of what was read: %lld)\n", static_cast<long long>(sum));
}

void benchComposedCharacters() {
    std::u16string text;
    while (text.size() < textBytes / 10)
        text += u"e\u0301\u0416\U0001F468\u200D\U0001F469 ";
    const StringView view(text);
    std::mt19937_64 random(5);
    print(
        "composedRange anywhere, no ASCII",
        measure(edits, [&] { (void)view.composedRange(static_cast<std::int64_t>(random() % text.size())); }),
        1, "ns");
}

} // namespace

int main() {
    const std::string bytes = sourceText();
    std::printf("%-46s %12s %12s\n", "50,000,000 characters", "median", "p99");
    benchLoading(bytes);
    benchMemory(bytes);
    std::u16string plain(bytes.begin(), bytes.end());
    StringView view(load(bytes));
    benchReading(view, plain);
    benchEditing(view, plain);
    benchComposedCharacters();
}
