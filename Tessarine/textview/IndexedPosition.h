#pragma once

#include "Tessarine/textview/TextPosition.h"

#include <cstdint>
#include <memory>

namespace tessarine {

// The text view's own positions: a location in code units.
class IndexedPosition final : public TextPosition {
public:
    explicit IndexedPosition(std::int64_t index)
        : m_index(index) {}

    std::int64_t index() const { return m_index; }

private:
    const std::int64_t m_index;
};

using IndexedPositionReference = std::shared_ptr<const IndexedPosition>;

} // namespace tessarine
