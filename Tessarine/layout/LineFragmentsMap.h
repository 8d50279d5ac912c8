#pragma once

#include "Tessarine/layout/LineFragmentID.h"

#include <cstdint>
#include <optional>

namespace tessarine {

// From the ids of the rows in [first, limit) of one line to their indices. It stores no row: an id tells its
// place itself.
class LineFragmentsMap {
public:
    LineFragmentsMap(const NodeIdentity& lineID, std::int64_t first, std::int64_t limit)
        : m_lineID(lineID)
        , m_first(first)
        , m_limit(limit) {}

    std::int64_t size() const { return m_limit - m_first; }

    std::optional<std::int64_t> find(const LineFragmentID& id) const {
        const bool isIn = id.lineID == m_lineID && id.index >= m_first && id.index < m_limit;
        return isIn ? std::optional(id.index) : std::nullopt;
    }

private:
    NodeIdentity m_lineID;
    std::int64_t m_first;
    std::int64_t m_limit;
};

} // namespace tessarine
