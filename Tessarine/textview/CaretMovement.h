#pragma once

#include <cstdint>

namespace tessarine {

// Where a caret can be sent.
enum class CaretMovement : std::uint8_t {
    left,
    right,
    wordLeft,
    wordRight,
    up, // by rows, keeping the place in points over several steps
    down,
    pageUp,
    pageDown,
    lineStart, // the first character that is no blank; from there or from within the blanks the line's start
    lineEnd,   // the end of the row, from there the end of the line
    documentStart,
    documentEnd
};

// What becomes of a selection then.
enum class SelectionMode : std::uint8_t {
    move,  // none is left; a step left or right goes to that end of it
    extend // its other end stays
};

// What a key can delete where nothing is selected; otherwise each of them deletes the selection.
enum class TextDeletion : std::uint8_t {
    backward, // a character, or a unit of the indent
    forward,
    wordBackward,
    wordForward,
    toLineStart,
    toLineEnd // at the end of a line its break
};

} // namespace tessarine
