#include "Tessarine/textview/TextInputStringTokenizer.h"

#include "Tessarine/textview/TextInputPositions.h"
#include "Tessarine/textview/WordMovement.h"

namespace tessarine {

namespace {

// Where one is inside of the unit also at its ends.
bool isLarge(TextGranularity granularity) {
    return granularity != TextGranularity::character && granularity != TextGranularity::word;
}

} // namespace

std::optional<TextInputStringTokenizer::Side> TextInputStringTokenizer::sideIn(TextDirection direction) {
    switch (storageDirection(direction)) {
    case TextDirection::forward:
        return Side::behind;
    case TextDirection::backward:
        return Side::before;
    default:
        return std::nullopt;
    }
}

std::optional<std::int64_t> TextInputStringTokenizer::locationOf(const TextPosition& position) const {
    const std::int64_t location = indexOf(position);
    if (location < 0 || location > m_stringView->length()) return std::nullopt;
    return location;
}

TextRange TextInputStringTokenizer::lineContent(std::int64_t location) const {
    const DocumentLineNode& line = m_lineManager->lineContaining(location);
    return {line.location(), line.data().length()};
}

// Nothing at the ends of the text, where there is none.
std::optional<TextRange> TextInputStringTokenizer::unitBeside(std::int64_t location, Side side,
                                                              TextGranularity granularity) const {
    if (granularity == TextGranularity::document) return TextRange{0, m_stringView->length()};
    if (isLarge(granularity)) return lineContent(location);
    const std::int64_t inUnit = side == Side::behind ? location : location - 1;
    if (inUnit < 0 || inUnit == m_stringView->length()) return std::nullopt;
    if (granularity == TextGranularity::word) return wordContaining(*m_stringView, inUnit);
    return m_stringView->composedRange(inUnit);
}

std::optional<TextRange> TextInputStringTokenizer::unitOn(std::optional<Side> side,
                                                          const TextPosition& position,
                                                          TextGranularity granularity) const {
    const auto location = locationOf(position);
    if (!location || !side) return std::nullopt;
    return unitBeside(*location, *side, granularity);
}

bool TextInputStringTokenizer::isPositionAtBoundary(const TextPosition& position, TextGranularity granularity,
                                                    TextDirection direction) const {
    const auto side = sideIn(direction);
    if (!side) return false;
    const auto unit = unitOn(side == Side::behind ? Side::before : Side::behind, position, granularity);
    return unit && (side == Side::behind ? unit->limit() : unit->location) == indexOf(position);
}

IndexedPositionReference TextInputStringTokenizer::positionToBoundary(const TextPosition& position,
                                                                      TextGranularity granularity,
                                                                      TextDirection direction) const {
    const auto side = sideIn(direction);
    const auto unit = unitOn(side, position, granularity);
    if (!unit) return nullptr;
    return std::make_shared<IndexedPosition>(side == Side::behind ? unit->limit() : unit->location);
}

bool TextInputStringTokenizer::isPositionWithinTextUnit(const TextPosition& position,
                                                        TextGranularity granularity,
                                                        TextDirection direction) const {
    return rangeEnclosingPosition(position, granularity, direction) != nullptr;
}

IndexedRangeReference TextInputStringTokenizer::rangeEnclosingPosition(const TextPosition& position,
                                                                       TextGranularity granularity,
                                                                       TextDirection direction) const {
    const auto side = sideIn(direction);
    const auto unit = unitOn(side, position, granularity);
    if (!unit) return nullptr;
    const std::int64_t location = indexOf(position);
    const bool isInside = side == Side::behind ? location < unit->limit() : location > unit->location;
    return isInside ? std::make_shared<IndexedRange>(*unit) : nullptr;
}

} // namespace tessarine
