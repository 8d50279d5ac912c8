#pragma once

#include "Tessarine/base/TextRange.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tessarine {

// Which parts of a long line have their colours: it gets them in windows of a fixed size, as they are needed.
// Units: code units from the line's start.
class HighlightedWindows {
public:
    static constexpr std::int64_t windowLength = 128;

    void clear() { m_isHighlighted.clear(); }

    // The windows from the first to the last without colours of those that a range touches, which starts in
    // the line; nothing if all have them.
    std::optional<TextRange> missing(const TextRange& range, std::int64_t lineLength) const;

    // A range has its colours: so have the windows of which nothing lies outside of it.
    void add(const TextRange& range, std::int64_t lineLength);

private:
    bool isHighlighted(std::int64_t window) const {
        return window < static_cast<std::int64_t>(m_isHighlighted.size()) &&
               m_isHighlighted[static_cast<std::size_t>(window)];
    }

    std::vector<bool> m_isHighlighted;
};

} // namespace tessarine
