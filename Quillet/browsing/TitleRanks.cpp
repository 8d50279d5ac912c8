#include "Quillet/browsing/TitleRanks.h"

#include <algorithm>
#include <span>

namespace quillet {

namespace {

// Code units that are compared at a time, as one number.
constexpr qsizetype chunkUnits = 3;
constexpr int unitBits = 21;
// Texts that agree for so long are compared whole from there on.
constexpr qsizetype longAgreement = 96;

struct Entry {
    std::uint64_t chunk = 0;
    std::uint32_t text = 0;
};

// The end of a text counts as less than any code unit.
std::uint64_t chunkOf(const QString& text, qsizetype from) {
    std::uint64_t chunk = 0;
    for (qsizetype i = from; i < from + chunkUnits; ++i)
        chunk = (chunk << unitBits) | (i < text.size() ? text[i].unicode() + 1U : 0U);
    return chunk;
}

bool isEnd(std::uint64_t chunk) {
    return (chunk & ((1U << unitBits) - 1)) == 0;
}

class Ranking {
public:
    explicit Ranking(const std::vector<QString>& texts)
        : m_texts(texts)
        , m_ranks(texts.size()) {
        std::vector<Entry> entries(texts.size());
        for (std::uint32_t i = 0; i < entries.size(); ++i)
            entries[i].text = i;
        sort(entries, 0);
    }

    std::vector<std::uint32_t> ranks() && { return std::move(m_ranks); }

private:
    // The texts are equal as far as `from`.
    void sort(std::span<Entry> entries, qsizetype from) {
        if (from >= longAgreement) return sortWhole(entries);
        for (auto& entry : entries)
            entry.chunk = chunkOf(m_texts[entry.text], from);
        std::ranges::sort(entries, {}, &Entry::chunk);
        forEachRun(
            entries, [](const Entry& a, const Entry& b) { return a.chunk == b.chunk; },
            [this, from](std::span<Entry> run) {
                if (run.size() == 1 || isEnd(run.front().chunk))
                    giveRank(run);
                else
                    sort(run, from + chunkUnits);
            });
    }

    void sortWhole(std::span<Entry> entries) {
        const auto textOf = [this](const Entry& entry) -> const QString& { return m_texts[entry.text]; };
        std::ranges::sort(entries, {}, textOf);
        forEachRun(
            entries, [&](const Entry& a, const Entry& b) { return textOf(a) == textOf(b); },
            [this](std::span<Entry> run) { giveRank(run); });
    }

    template <typename Equal, typename Work>
    static void forEachRun(std::span<Entry> entries, Equal equal, Work work) {
        for (auto begin = entries.begin(); begin != entries.end();) {
            const auto end = std::find_if_not(begin, entries.end(),
                                              [&](const Entry& entry) { return equal(entry, *begin); });
            work(std::span(begin, end));
            begin = end;
        }
    }

    void giveRank(std::span<const Entry> equals) {
        for (const auto& entry : equals)
            m_ranks[entry.text] = m_nextRank;
        ++m_nextRank;
    }

    const std::vector<QString>& m_texts;
    std::vector<std::uint32_t> m_ranks;
    std::uint32_t m_nextRank = 0;
};

} // namespace

std::vector<std::uint32_t> ranksOf(const std::vector<QString>& texts) {
    return Ranking(texts).ranks();
}

} // namespace quillet
