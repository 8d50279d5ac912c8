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

TreeSitterInputEdit inverse(const TreeSitterInputEdit& edit) {
    return {.startByte = edit.startByte,
            .oldEndByte = edit.newEndByte,
            .newEndByte = edit.oldEndByte,
            .startPoint = edit.startPoint,
            .oldEndPoint = edit.newEndPoint,
            .newEndPoint = edit.oldEndPoint};
}

bool touch(const TreeSitterInputEdit& first, const TreeSitterInputEdit& second) {
    return second.startByte <= first.newEndByte && second.oldEndByte >= first.startByte;
}

// Two edits that touch as one. The end that lies further back is the end of both; the other moves there.
TreeSitterInputEdit merged(const TreeSitterInputEdit& first, const TreeSitterInputEdit& second) {
    TreeSitterInputEdit both = first;
    if (second.startByte < first.startByte) {
        both.startByte = second.startByte;
        both.startPoint = second.startPoint;
    }
    if (second.oldEndByte > first.newEndByte) {
        both.oldEndByte = first.oldEndByte + (second.oldEndByte - first.newEndByte);
        both.oldEndPoint = TreeSitterTextPoint(movedPoint(second.oldEndPoint.rawValue(), inverse(first)));
        both.newEndByte = second.newEndByte;
        both.newEndPoint = second.newEndPoint;
    } else {
        both.newEndByte = second.newEndByte + (first.newEndByte - second.oldEndByte);
        both.newEndPoint = TreeSitterTextPoint(movedPoint(first.newEndPoint.rawValue(), second));
    }
    return both;
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

std::vector<TreeSitterTextRange> rangesTouched(std::span<const TreeSitterInputEdit> edits) {
    std::vector<TreeSitterTextRange> ranges;
    for (std::size_t i = 0; i < edits.size(); ++i) {
        const TSInputEdit edit = edits[i].rawValue();
        const TreeSitterTextRange touched({.start_point = edit.start_point,
                                           .end_point = edit.new_end_point,
                                           .start_byte = edit.start_byte,
                                           .end_byte = edit.new_end_byte});
        ranges.push_back(rangeAfterEdits(touched, edits.subspan(i + 1)).range);
    }
    return ranges;
}

std::vector<TreeSitterInputEdit> coalesced(std::span<const TreeSitterInputEdit> edits) {
    std::vector<TreeSitterInputEdit> result;
    for (const TreeSitterInputEdit& edit : edits)
        if (!result.empty() && touch(result.back(), edit))
            result.back() = merged(result.back(), edit);
        else
            result.push_back(edit);
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
