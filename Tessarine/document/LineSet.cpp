#include "Tessarine/document/LineSet.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessarine {

bool LineSet::insert(DocumentLineNode& line) {
    if (contains(line)) return false;
    if (m_large.empty() && m_smallSize < smallCapacity) {
        m_small[m_smallSize++] = DocumentLineNodeReference(&line);
        return true;
    }
    if (m_large.empty()) {
        std::move(m_small.begin(), m_small.end(), std::back_inserter(m_large));
        m_smallSize = 0;
        rebuildTable(4 * smallCapacity);
    }
    append(line);
    return true;
}

bool LineSet::remove(const DocumentLineNode& line) {
    const std::size_t index = find(line);
    if (index == size()) return false;
    if (m_large.empty()) {
        std::move(m_small.begin() + index + 1, m_small.begin() + m_smallSize, m_small.begin() + index);
        m_small[--m_smallSize] = {};
        return true;
    }
    clearBucket(bucketOf(line));
    if (index + 1 < m_large.size()) {
        m_buckets[bucketOf(*m_large.back())] = static_cast<std::uint32_t>(index + 1);
        std::swap(m_large[index], m_large.back());
    }
    m_large.pop_back();
    return true;
}

// The index of the line, or size().
std::size_t LineSet::find(const DocumentLineNode& line) const {
    if (!m_large.empty()) {
        const std::uint32_t entry = m_buckets[bucketOf(line)];
        return entry == 0 ? m_large.size() : entry - 1;
    }
    std::size_t index = 0;
    while (index < m_smallSize && m_small[index].get() != &line)
        ++index;
    return index;
}

void LineSet::append(DocumentLineNode& line) {
    if (2 * (m_large.size() + 1) > m_buckets.size()) rebuildTable(2 * m_buckets.size());
    const std::size_t bucket = bucketOf(line);
    m_large.emplace_back(&line);
    m_buckets[bucket] = static_cast<std::uint32_t>(m_large.size());
}

void LineSet::rebuildTable(std::size_t buckets) {
    m_buckets.assign(buckets, 0);
    for (std::size_t index = 0; index < m_large.size(); ++index)
        m_buckets[bucketOf(*m_large[index])] = static_cast<std::uint32_t>(index + 1);
}

// Serials are given out in a row, so that lines made together fall into buckets of their own.
std::size_t LineSet::homeOf(const DocumentLineNode& line) const {
    return static_cast<std::size_t>(line.id().id.lowerHalf()) & (m_buckets.size() - 1);
}

// The line's bucket, or the empty one that it would take.
std::size_t LineSet::bucketOf(const DocumentLineNode& line) const {
    std::size_t bucket = homeOf(line);
    while (m_buckets[bucket] != 0 && m_large[m_buckets[bucket] - 1].get() != &line)
        bucket = (bucket + 1) & (m_buckets.size() - 1);
    return bucket;
}

// Moves later entries of the same run forward, so that no search ends too early at the gap.
void LineSet::clearBucket(std::size_t bucket) {
    const std::size_t mask = m_buckets.size() - 1;
    for (std::size_t next = (bucket + 1) & mask; m_buckets[next] != 0; next = (next + 1) & mask) {
        const std::size_t home = homeOf(*m_large[m_buckets[next] - 1]);
        if (((next - home) & mask) < ((next - bucket) & mask)) continue;
        m_buckets[bucket] = m_buckets[next];
        bucket = next;
    }
    m_buckets[bucket] = 0;
}

} // namespace tessarine
