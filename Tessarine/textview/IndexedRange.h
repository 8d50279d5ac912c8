#pragma once

#include "Tessarine/base/TextRange.h"
#include "Tessarine/textview/IndexedPosition.h"

#include <memory>

namespace tessarine {

// The text view's own ranges. A negative length reaches back from the location.
class IndexedRange final : public TextPositionRange {
public:
    explicit IndexedRange(const TextRange& range)
        : m_range(range) {}

    const TextRange& range() const { return m_range; }

    IndexedPositionReference start() const { return std::make_shared<IndexedPosition>(m_range.location); }

    IndexedPositionReference end() const { return std::make_shared<IndexedPosition>(m_range.limit()); }

    bool isEmpty() const { return m_range.length == 0; }

private:
    const TextRange m_range;
};

using IndexedRangeReference = std::shared_ptr<const IndexedRange>;

} // namespace tessarine
