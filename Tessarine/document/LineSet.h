#pragma once

#include "Tessarine/document/DocumentLineNodeData.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessarine {

// A set of lines, which it keeps alive. Up to four lie in the object itself; beyond that a table of indexes
// finds a line. Members stand in the order of insertion as long as none is removed.
// Cost: O(1) a line, no allocation for small sets.
class LineSet {
public:
    // True if the line was not in the set.
    bool insert(DocumentLineNode& line);

    // True if the line was in the set.
    bool remove(const DocumentLineNode& line);

    bool contains(const DocumentLineNode& line) const { return find(line) < size(); }

    std::size_t size() const { return m_smallSize + m_large.size(); }

    bool isEmpty() const { return size() == 0; }

    // Until the next change of the set.
    std::span<const DocumentLineNodeReference> lines() const {
        if (m_large.empty()) return {m_small.data(), m_smallSize};
        return m_large;
    }

    auto begin() const { return lines().begin(); }

    auto end() const { return lines().end(); }

private:
    static constexpr std::size_t smallCapacity = 4;

    std::size_t find(const DocumentLineNode& line) const;
    void append(DocumentLineNode& line);
    void rebuildTable(std::size_t buckets);
    std::size_t homeOf(const DocumentLineNode& line) const;
    std::size_t bucketOf(const DocumentLineNode& line) const;
    void clearBucket(std::size_t bucket);

    std::array<DocumentLineNodeReference, smallCapacity> m_small;
    std::size_t m_smallSize = 0;
    std::vector<DocumentLineNodeReference> m_large; // once in use it holds all
    std::vector<std::uint32_t> m_buckets;           // index into m_large plus 1, or 0; a power of two of them
};

} // namespace tessarine
