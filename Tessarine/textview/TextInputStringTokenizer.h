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
// Positions outside of the document have no answer. Up and down have none either. Thread: the main one.
class TextInputStringTokenizer {
public:
    TextInputStringTokenizer(std::shared_ptr<const StringView> stringView,
                             std::shared_ptr<const LineManager> lineManager)
        : m_stringView(std::move(stringView))
        , m_lineManager(std::move(lineManager)) {}

    // Whether a unit ends there, seen in the direction.
    bool isPositionAtBoundary(const TextPosition& position, TextGranularity granularity,
                              TextDirection direction) const;

    // Where the unit ends that one stands in; of words and characters always further on.
    IndexedPositionReference positionToBoundary(const TextPosition& position, TextGranularity granularity,
                                                TextDirection direction) const;

    // Whether there is a unit on that side.
    bool isPositionWithinTextUnit(const TextPosition& position, TextGranularity granularity,
                                  TextDirection direction) const;

    // That unit.
    IndexedRangeReference rangeEnclosingPosition(const TextPosition& position, TextGranularity granularity,
                                                 TextDirection direction) const;

private:
    bool isInDocument(std::int64_t location) const;
    std::optional<TextRange> unitAt(std::int64_t location, TextGranularity granularity,
                                    TextDirection direction) const;
    TextRange lineContent(std::int64_t location) const;
    std::optional<TextRange> rangeEnclosing(const TextPosition& position, TextGranularity granularity,
                                            TextDirection direction) const;

    std::shared_ptr<const StringView> m_stringView;
    std::shared_ptr<const LineManager> m_lineManager;
};

} // namespace tessarine
