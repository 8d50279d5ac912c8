#pragma once

#include "Tessarine/document/LineManager.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/textview/IndexedRange.h"
#include "Tessarine/textview/TextDirection.h"
#include "Tessarine/textview/TextGranularity.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace tessarine {

// Tells an input system where characters, words and lines begin and end. Words are those of WordMovement.
//
// Positions outside of the document have no answer, nor have up and down. Thread: the main one.
class TextInputStringTokenizer {
public:
    TextInputStringTokenizer(std::shared_ptr<const StringView> stringView,
                             std::shared_ptr<const LineManager> lineManager)
        : m_stringView(std::move(stringView))
        , m_lineManager(std::move(lineManager)) {}

    // Whether a unit ends there, for whoever goes in that direction.
    bool isPositionAtBoundary(const TextPosition& position, TextGranularity granularity,
                              TextDirection direction) const;

    // The next such place; in a line also where one is.
    IndexedPositionReference positionToBoundary(const TextPosition& position, TextGranularity granularity,
                                                TextDirection direction) const;

    // Whether there is a unit on that side of the position.
    bool isPositionWithinTextUnit(const TextPosition& position, TextGranularity granularity,
                                  TextDirection direction) const;

    // That unit.
    IndexedRangeReference rangeEnclosingPosition(const TextPosition& position, TextGranularity granularity,
                                                 TextDirection direction) const;

private:
    enum class Side : std::uint8_t { before, behind };

    static std::optional<Side> sideIn(TextDirection direction);
    std::optional<std::int64_t> locationOf(const TextPosition& position) const;
    std::optional<TextRange> unitBeside(std::int64_t location, Side side, TextGranularity granularity) const;
    std::optional<TextRange> unitOn(std::optional<Side> side, const TextPosition& position,
                                    TextGranularity granularity) const;
    TextRange lineContent(std::int64_t location) const;

    std::shared_ptr<const StringView> m_stringView;
    std::shared_ptr<const LineManager> m_lineManager;
};

} // namespace tessarine
