#include "Tessarine/textview/LineMovementController.h"

#include "Tessarine/base/FatalError.h"

#include <algorithm>

namespace tessarine {

void LineMovementController::setDocument(std::shared_ptr<const StringView> stringView,
                                         std::shared_ptr<const LineManager> lineManager) {
    m_stringView = std::move(stringView);
    m_lineManager = std::move(lineManager);
}

std::int64_t LineMovementController::locationByHorizontalOffset(std::int64_t location,
                                                                std::int64_t offset) const {
    std::int64_t target = 0;
    if (__builtin_add_overflow(location, offset, &target)) return location;
    const std::int64_t length = m_stringView->length();
    if (target < 0 || target > length) return location;
    if (target == 0 || target == length) return target;
    const TextRange character = m_stringView->composedRange(target);
    if (target <= character.location || target >= character.limit()) return target;
    return location + (offset > 0 ? character.length : -character.length);
}

std::int64_t LineMovementController::locationByLineOffset(std::int64_t location, std::int64_t offset) const {
    if (location < 0 || location > m_stringView->length()) return location;
    DocumentLineNode& line = m_lineManager->lineContaining(location);
    const auto fragment = delegate().lineFragmentContaining(location - line.location(), line);
    const std::int64_t column = location - line.location() - fragment->range.location;
    const Place place{&line, fragment->index, column};
    if (offset < 0) return moveUp(offset, place);
    return moveDown(offset, place);
}

LineMovementControllerDelegate& LineMovementController::delegate() const {
    const auto delegate = m_delegate.lock();
    if (!delegate) fatalError("Delegate of LineMovementController is unavailable");
    return *delegate;
}

std::int64_t LineMovementController::locationIn(const Place& place) const {
    const DocumentLineNode& line = *place.line;
    const TextRange row = delegate().lineFragmentAtIndex(place.fragmentIndex, *place.line)->range;
    const std::int64_t inLine = std::min({row.location + place.column, row.limit(), line.data().length()});
    return line.location() + inLine;
}

// The offset stays negative, as the most negative one has no counterpart.
std::int64_t LineMovementController::moveUp(std::int64_t offset, Place place) const {
    while (-place.fragmentIndex > offset) {
        const std::int64_t row = place.line->index();
        if (row == 0) return 0;
        offset += place.fragmentIndex + 1;
        place.line = &m_lineManager->lineAtRow(row - 1);
        place.fragmentIndex = delegate().numberOfLineFragments(*place.line) - 1;
    }
    place.fragmentIndex += offset;
    return locationIn(place);
}

std::int64_t LineMovementController::moveDown(std::int64_t offset, Place place) const {
    while (true) {
        const std::int64_t below = delegate().numberOfLineFragments(*place.line) - 1 - place.fragmentIndex;
        if (offset <= below) break;
        const std::int64_t row = place.line->index();
        if (row + 1 == m_lineManager->lineCount()) return m_stringView->length();
        offset -= below + 1;
        place.line = &m_lineManager->lineAtRow(row + 1);
        place.fragmentIndex = 0;
    }
    place.fragmentIndex += offset;
    return locationIn(place);
}

} // namespace tessarine
