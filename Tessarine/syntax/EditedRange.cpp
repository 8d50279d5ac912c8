#include "Tessarine/syntax/EditedRange.h"

#include "Tessarine/syntax/Checked32.h"

#include <algorithm>
#include <ranges>

namespace tessarine {

namespace {

struct Place {
    ByteCount byte;
    TSPoint point;
};

// Of a point behind the edit. Points of edits and of trees disagree where lines end in other than LF: then
// the difference may be below zero.
TSPoint movedPoint(TSPoint point, const TreeSitterInputEdit& edit) {
    const TSPoint oldEnd = edit.oldEndPoint.rawValue();
    const TSPoint newEnd = edit.newEndPoint.rawValue();
    if (point.row > oldEnd.row) return {newEnd.row + (point.row - oldEnd.row), point.column};
    return {newEnd.row, newEnd.column + (point.column - std::min(point.column, oldEnd.column))};
}

Place editedPlace(const Place& place, const TreeSitterInputEdit& edit) {
    if (place.byte >= edit.oldEndByte)
        return {edit.newEndByte + (place.byte - edit.oldEndByte), movedPoint(place.point, edit)};
    if (place.byte > edit.startByte) return {edit.startByte, edit.startPoint.rawValue()};
    return place;
}

EditEffect effectOf(const TreeSitterInputEdit& edit, const TreeSitterTextRange& range) {
    if (edit.startByte > range.endByte()) return EditEffect::none;
    const bool liesAbove =
        edit.oldEndByte < range.startByte() && edit.oldEndPoint.row() < range.startPoint().row();
    return liesAbove ? EditEffect::moves : EditEffect::touches;
}

} // namespace

TreeSitterTextRange editedRange(const TreeSitterTextRange& range, const TreeSitterInputEdit& edit) {
    const Place start = editedPlace({range.startByte(), range.rawValue().start_point}, edit);
    const Place end = editedPlace({range.endByte(), range.rawValue().end_point}, edit);
    return TreeSitterTextRange({.start_point = start.point,
                                .end_point = end.point,
                                .start_byte = checked32(start.byte.value()),
                                .end_byte = checked32(end.byte.value())});
}

RangeAfterEdits rangeAfterEdits(const TreeSitterTextRange& range,
                                std::span<const TreeSitterInputEdit> edits) {
    RangeAfterEdits result{range, EditEffect::none};
    for (const TreeSitterInputEdit& edit : edits) {
        const EditEffect effect = effectOf(edit, result.range);
        result.effect = std::max(result.effect, effect);
        if (effect != EditEffect::none) result.range = editedRange(result.range, edit);
    }
    return result;
}

ByteInterval beforeEdits(ByteInterval interval, std::span<const TreeSitterInputEdit> edits) {
    for (const TreeSitterInputEdit& edit : edits | std::views::reverse) {
        if (interval.first > edit.newEndByte)
            interval.first = interval.first - edit.newEndByte + edit.oldEndByte;
        else
            interval.first = std::min(interval.first, edit.startByte);
        if (interval.last >= edit.newEndByte)
            interval.last = interval.last - edit.newEndByte + edit.oldEndByte;
        else if (interval.last >= edit.startByte)
            interval.last = edit.oldEndByte;
    }
    return interval;
}

} // namespace tessarine
