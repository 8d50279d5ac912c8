#pragma once

#include "Tessarine/document/StringView.h"
#include "Tessarine/textview/IndexedRange.h"
#include "Tessarine/textview/LineMovementController.h"
#include "Tessarine/textview/TextDirection.h"

#include <compare>
#include <cstdint>
#include <memory>

namespace tessarine {

// The index of a position, which has to be one of the text view's own, else the program stops; so for ranges.
std::int64_t indexOf(const TextPosition& position);

// With a length of 0 or more.
TextRange rangeOf(const TextPositionRange& range);

// An input system's reckoning with positions in the text of a view. Null stands for no position. Borrows the
// text. Thread: the main one.
class TextInputPositions {
public:
    TextInputPositions(const StringView& stringView, const LineMovementController& lineMovementController)
        : m_stringView(stringView)
        , m_lineMovementController(lineMovementController) {}

    IndexedPositionReference beginningOfDocument() const;
    IndexedPositionReference endOfDocument() const;

    // In code units; none outside of the text.
    IndexedPositionReference positionFromPosition(const TextPosition& position, std::int64_t offset) const;

    // By characters to the sides, by rows up and down; none in other directions.
    IndexedPositionReference positionFromPosition(const TextPosition& position, TextDirection direction,
                                                  std::int64_t offset) const;

    static IndexedRangeReference rangeFromPosition(const TextPosition& from, const TextPosition& to);
    static std::strong_ordering comparePosition(const TextPosition& position, const TextPosition& other);
    static std::int64_t offsetFromPosition(const TextPosition& from, const TextPosition& to);

private:
    const StringView& m_stringView;
    const LineMovementController& m_lineMovementController;
};

} // namespace tessarine
