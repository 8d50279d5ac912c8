#pragma once

#include "Tessarine/syntax/TreeSitterCapture.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace tessarine {

// The captures of one match, in the library's order.
class TreeSitterQueryMatch {
public:
    explicit TreeSitterQueryMatch(std::vector<TreeSitterCapture> captures = {})
        : m_captures(std::move(captures)) {}

    const std::vector<TreeSitterCapture>& captures() const { return m_captures; }

    // The first with that index, or null.
    const TreeSitterCapture* capture(std::uint32_t index) const;

    std::string debugDescription() const;

private:
    friend class TreeSitterQueryCursor;

    std::vector<TreeSitterCapture> m_captures;
};

} // namespace tessarine
