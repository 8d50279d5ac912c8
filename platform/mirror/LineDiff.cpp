#include "platform/mirror/LineDiff.h"

#include <QtCore/QHash>

#include <algorithm>
#include <optional>
#include <span>

namespace platform {

namespace {

// Steps of the search; its memory grows with their square, 4 MB at most.
constexpr int mostEdits = 1000;

using Numbers = std::vector<int>;

qsizetype lineLimit(QStringView text, qsizetype start) {
    for (qsizetype i = start; i < text.size(); ++i) {
        if (text[i] == u'\n') return i + 1;
        if (text[i] == u'\r') return i + 1 < text.size() && text[i + 1] == u'\n' ? i + 2 : i + 1;
    }
    return text.size();
}

// Equal lines have equal numbers.
class LineNumbers {
public:
    Numbers of(const Lines& lines) {
        Numbers numbers;
        numbers.reserve(lines.size());
        for (const QStringView line : lines) {
            const auto known = m_numbers.constFind(line);
            numbers.push_back(known != m_numbers.cend() ? *known : add(line));
        }
        return numbers;
    }

private:
    int add(QStringView line) {
        const int number = static_cast<int>(m_numbers.size());
        m_numbers.insert(line, number);
        return number;
    }

    QHash<QStringView, int> m_numbers;
};

// The greedy search for the shortest edit script. On the diagonal k = x - y, reach[d][k] is how far x comes
// with d insertions and removals.
class EditSearch {
public:
    EditSearch(std::span<const int> base, std::span<const int> other)
        : m_base(base)
        , m_other(other) {}

    // The pairs of lines that stay, in order; nothing where the search was given up.
    std::optional<std::vector<std::pair<int, int>>> keptLines() {
        for (int edits = 0; edits <= mostEdits; ++edits) {
            m_reach.emplace_back(2 * edits + 1);
            for (int diagonal = -edits; diagonal <= edits; diagonal += 2)
                if (advance(edits, diagonal)) return walkBack(edits, diagonal);
        }
        return std::nullopt;
    }

private:
    int baseSize() const { return static_cast<int>(m_base.size()); }

    int otherSize() const { return static_cast<int>(m_other.size()); }

    int& reach(int edits, int diagonal) { return m_reach[edits][diagonal + edits]; }

    // Whether the best way to the diagonal comes from the one above, by an insertion.
    bool comesByInsertion(int edits, int diagonal) {
        if (diagonal == -edits) return true;
        return diagonal != edits && reach(edits - 1, diagonal - 1) < reach(edits - 1, diagonal + 1);
    }

    int entryOf(int edits, int diagonal) {
        if (edits == 0) return 0;
        return comesByInsertion(edits, diagonal) ? reach(edits - 1, diagonal + 1)
                                                 : reach(edits - 1, diagonal - 1) + 1;
    }

    bool advance(int edits, int diagonal) {
        int x = entryOf(edits, diagonal);
        while (x < baseSize() && x - diagonal < otherSize() && m_base[x] == m_other[x - diagonal])
            ++x;
        reach(edits, diagonal) = x;
        return x >= baseSize() && x - diagonal >= otherSize();
    }

    std::vector<std::pair<int, int>> walkBack(int edits, int diagonal) {
        std::vector<std::pair<int, int>> kept;
        for (; edits >= 0; --edits) {
            const int entry = entryOf(edits, diagonal);
            for (int x = reach(edits, diagonal) - 1; x >= entry; --x)
                kept.emplace_back(x, x - diagonal);
            if (edits > 0) diagonal += comesByInsertion(edits, diagonal) ? 1 : -1;
        }
        std::ranges::reverse(kept);
        return kept;
    }

    std::span<const int> m_base;
    std::span<const int> m_other;
    std::vector<std::vector<int>> m_reach;
};

// The gaps between kept lines.
std::vector<Hunk> hunksBetween(const std::vector<std::pair<int, int>>& kept, qsizetype offset,
                               qsizetype baseSize, qsizetype otherSize) {
    std::vector<Hunk> hunks;
    qsizetype base = 0;
    qsizetype other = 0;
    const auto close = [&](qsizetype baseLimit, qsizetype otherLimit) {
        if (base < baseLimit || other < otherLimit)
            hunks.push_back({offset + base, offset + baseLimit, offset + other, offset + otherLimit});
        base = baseLimit + 1;
        other = otherLimit + 1;
    };
    for (const auto& [baseLine, otherLine] : kept)
        close(baseLine, otherLine);
    close(baseSize, otherSize);
    return hunks;
}

} // namespace

Lines splitLines(QStringView text) {
    Lines lines;
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype limit = lineLimit(text, start);
        lines.push_back(text.sliced(start, limit - start));
        start = limit;
    }
    return lines;
}

std::vector<Hunk> diffLines(const Lines& baseLines, const Lines& otherLines) {
    LineNumbers numbers;
    const Numbers baseNumbers = numbers.of(baseLines);
    const Numbers otherNumbers = numbers.of(otherLines);
    std::span<const int> base = baseNumbers;
    std::span<const int> other = otherNumbers;
    const auto prefix = std::ranges::mismatch(base, other).in1 - base.begin();
    base = base.subspan(prefix);
    other = other.subspan(prefix);
    while (!base.empty() && !other.empty() && base.back() == other.back()) {
        base = base.first(base.size() - 1);
        other = other.first(other.size() - 1);
    }
    const auto kept = EditSearch(base, other).keptLines();
    return hunksBetween(kept.value_or(std::vector<std::pair<int, int>>()), prefix,
                        static_cast<qsizetype>(base.size()), static_cast<qsizetype>(other.size()));
}

} // namespace platform
