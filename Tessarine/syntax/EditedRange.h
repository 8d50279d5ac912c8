#pragma once

#include "Tessarine/syntax/TreeSitterInputEdit.h"
#include "Tessarine/syntax/TreeSitterTextRange.h"

#include <span>
#include <vector>

namespace tessarine {

// What edits do to what is parsed from a range of the text.
enum class EditEffect {
    none,    // they lie behind it
    moves,   // they lie in lines above its first: same text in the same columns, further up or down
    touches, // anything else
};

// The place of the range after one edit, by the rules by which a tree moves the ranges that it was parsed
// from: what is inserted at its start stays outside of it, at its end inside.
TreeSitterTextRange editedRange(const TreeSitterTextRange& range, const TreeSitterInputEdit& edit);

struct RangeAfterEdits {
    TreeSitterTextRange range;
    EditEffect effect;
};

// The same for edits one after the other.
RangeAfterEdits rangeAfterEdits(const TreeSitterTextRange& range, std::span<const TreeSitterInputEdit> edits);

// What edits put in, in the text behind all of them.
std::vector<TreeSitterTextRange> rangesTouched(std::span<const TreeSitterInputEdit> edits);

// The same change of the text in fewer edits: neighbours that touch each other, as typing makes them, are
// one.
std::vector<TreeSitterInputEdit> coalesced(std::span<const TreeSitterInputEdit> edits);

// Bytes of the text before the edits that may have become part of, or touch, the bytes after them.
struct ByteInterval {
    ByteCount first;
    ByteCount last;
};

ByteInterval beforeEdits(ByteInterval interval, std::span<const TreeSitterInputEdit> edits);

} // namespace tessarine
