#include "Tessarine/textview/TextInputPositions.h"

#include "Tessarine/base/FatalError.h"

#include <limits>

namespace tessarine {

namespace {

constexpr auto wrongPosition = "Expected position to be of type IndexedPosition";
constexpr auto wrongRange = "Expected range to be of type IndexedRange";
constexpr auto wrongPositions = "Positions must be of type IndexedPosition";

const IndexedPosition& indexed(const TextPosition& position, const char* message) {
    const auto* const found = dynamic_cast<const IndexedPosition*>(&position);
    if (!found) fatalError(message);
    return *found;
}

std::int64_t indexInPair(const TextPosition& position) {
    return indexed(position, wrongPositions).index();
}

// Nobody counts further.
std::int64_t negated(std::int64_t offset) {
    constexpr auto limits = std::numeric_limits<std::int64_t>();
    return offset == limits.min() ? limits.max() : -offset;
}

} // namespace

std::int64_t indexOf(const TextPosition& position) {
    return indexed(position, wrongPosition).index();
}

TextRange rangeOf(const TextPositionRange& range) {
    const auto* const found = dynamic_cast<const IndexedRange*>(&range);
    if (!found) fatalError(wrongRange);
    const TextRange& given = found->range();
    if (given.length >= 0) return given;
    const std::int64_t start = given.length < -given.location ? 0 : given.limit();
    return {start, given.location - start};
}

IndexedPositionReference TextInputPositions::beginningOfDocument() const {
    return std::make_shared<IndexedPosition>(0);
}

IndexedPositionReference TextInputPositions::endOfDocument() const {
    return std::make_shared<IndexedPosition>(m_stringView.length());
}

IndexedPositionReference TextInputPositions::positionFromPosition(const TextPosition& position,
                                                                  std::int64_t offset) const {
    std::int64_t index = 0;
    if (__builtin_add_overflow(indexOf(position), offset, &index)) return nullptr;
    if (index < 0 || index > m_stringView.length()) return nullptr;
    return std::make_shared<IndexedPosition>(index);
}

IndexedPositionReference TextInputPositions::positionFromPosition(const TextPosition& position,
                                                                  TextDirection direction,
                                                                  std::int64_t offset) const {
    const std::int64_t index = indexOf(position);
    const LineMovementController& movement = m_lineMovementController;
    const auto at = [](std::int64_t location) { return std::make_shared<IndexedPosition>(location); };
    switch (direction) {
    case TextDirection::right:
        return at(movement.locationByHorizontalOffset(index, offset));
    case TextDirection::left:
        return at(movement.locationByHorizontalOffset(index, negated(offset)));
    case TextDirection::up:
        return at(movement.locationByLineOffset(index, negated(offset)));
    case TextDirection::down:
        return at(movement.locationByLineOffset(index, offset));
    case TextDirection::forward:
    case TextDirection::backward:
        break;
    }
    return nullptr;
}

IndexedRangeReference TextInputPositions::rangeFromPosition(const TextPosition& from,
                                                            const TextPosition& to) {
    const std::int64_t start = indexInPair(from);
    return std::make_shared<IndexedRange>(TextRange{start, indexInPair(to) - start});
}

std::strong_ordering TextInputPositions::comparePosition(const TextPosition& position,
                                                         const TextPosition& other) {
    return indexInPair(position) <=> indexInPair(other);
}

std::int64_t TextInputPositions::offsetFromPosition(const TextPosition& from, const TextPosition& to) {
    return indexInPair(to) - indexInPair(from);
}

} // namespace tessarine
