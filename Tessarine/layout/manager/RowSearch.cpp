#include "Tessarine/layout/manager/RowSearch.h"

#include <algorithm>

namespace tessarine {

namespace {

template <class IsInFront>
const LineFragment* firstNotInFront(const LineFragments& rows, IsInFront isInFront) {
    const auto found = std::ranges::partition_point(rows, [&](const auto& row) { return isInFront(*row); });
    return found == rows.end() ? nullptr : found->get();
}

} // namespace

const LineFragment* rowOfUnit(const LineFragments& rows, std::int64_t location) {
    return firstNotInFront(rows, [&](const LineFragment& row) { return row.range.limit() <= location; });
}

const LineFragment* rowAtCaret(const LineFragments& rows, std::int64_t location) {
    return firstNotInFront(rows, [&](const LineFragment& row) { return row.range.limit() < location; });
}

const LineFragment* rowAtHeight(const LineFragments& rows, double y) {
    return firstNotInFront(rows, [&](const LineFragment& row) { return row.maxY() <= y; });
}

} // namespace tessarine
