#include "platform/foundation/TextMerge.h"

#include "platform/foundation/LineDiff.h"

#include <algorithm>
#include <span>
#include <utility>

namespace platform {

namespace {

struct Region {
    qsizetype start = 0;
    qsizetype limit = 0;
};

bool overlaps(const Hunk& hunk, const Region& region) {
    return (hunk.baseStart < region.limit && region.start < hunk.baseLimit) ||
           (hunk.baseStart == region.start && hunk.baseLimit == region.limit);
}

// One of the two texts: its lines, and its changes one after the other.
class Side {
public:
    Side(const Lines& base, const QString& text)
        : m_base(base)
        , m_lines(splitLines(text))
        , m_hunks(diffLines(base, m_lines)) {}

    const Hunk* next() const { return m_next < m_hunks.size() ? &m_hunks[m_next] : nullptr; }

    // Takes the changes that overlap the region, which grows by them. Whether there were any.
    bool take(Region& region) {
        bool took = false;
        while (next() && overlaps(*next(), region)) {
            region.start = std::min(region.start, next()->baseStart);
            region.limit = std::max(region.limit, next()->baseLimit);
            if (!m_taken) m_taken = next();
            ++m_next;
            took = true;
        }
        return took;
    }

    bool hasTaken() const { return m_taken != nullptr; }

    // What this text has in place of the region's lines.
    std::span<const QStringView> lines(const Region& region) const {
        if (!m_taken) return std::span(m_base).subspan(region.start, region.limit - region.start);
        const Hunk& last = m_hunks[m_next - 1];
        const qsizetype start = m_taken->start - (m_taken->baseStart - region.start);
        const qsizetype limit = last.limit + (region.limit - last.baseLimit);
        return std::span(m_lines).subspan(start, limit - start);
    }

    void forgetTaken() { m_taken = nullptr; }

private:
    const Lines& m_base;
    Lines m_lines;
    std::vector<Hunk> m_hunks;
    std::size_t m_next = 0;
    const Hunk* m_taken = nullptr;
};

// A text put together from lines; it is torn where a line without a break is not the last.
class Composition {
public:
    void append(std::span<const QStringView> lines) {
        for (const QStringView line : lines) {
            m_isTorn = m_isTorn || (!m_text.isEmpty() && !m_text.endsWith(u'\n') && !m_text.endsWith(u'\r'));
            m_text.append(line);
        }
    }

    bool isTorn() const { return m_isTorn; }

    const QString& text() const { return m_text; }

private:
    QString m_text;
    bool m_isTorn = false;
};

Region firstRegion(const Side& a, const Side& b) {
    const auto place = [](const Hunk* hunk) { return std::pair(hunk->baseStart, hunk->baseLimit); };
    const Hunk* first = a.next();
    if (!first || (b.next() && place(b.next()) < place(first))) first = b.next();
    return {first->baseStart, first->baseLimit};
}

Region takeRegion(Side& a, Side& b) {
    Region region = firstRegion(a, b);
    a.forgetTaken();
    b.forgetTaken();
    // Both are asked each time: what one has taken may make the region reach the other's next hunk.
    const auto takeFromBoth = [&] {
        const bool hasTaken = a.take(region);
        return b.take(region) || hasTaken;
    };
    while (takeFromBoth()) {
    }
    return region;
}

} // namespace

MergedText mergeTexts(const QString& base, const QString& earlier, const QString& later) {
    const Lines baseLines = splitLines(base);
    Side earlierSide(baseLines, earlier);
    Side laterSide(baseLines, later);
    Composition merged;
    bool isConflict = false;
    qsizetype done = 0;
    while (earlierSide.next() || laterSide.next()) {
        const Region region = takeRegion(earlierSide, laterSide);
        const auto ours = earlierSide.lines(region);
        const auto theirs = laterSide.lines(region);
        merged.append(std::span(baseLines).subspan(done, region.start - done));
        merged.append(laterSide.hasTaken() ? theirs : ours);
        isConflict = isConflict ||
                     (earlierSide.hasTaken() && laterSide.hasTaken() && !std::ranges::equal(ours, theirs));
        done = region.limit;
    }
    merged.append(std::span(baseLines).subspan(done));
    if (merged.isTorn()) return {later, true};
    return {merged.text(), isConflict};
}

} // namespace platform
