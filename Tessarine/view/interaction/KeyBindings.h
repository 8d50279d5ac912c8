#pragma once

#include <cstdint>

class QKeyEvent;

namespace tessarine {

class TextClipboard;
class TextView;

// What one key does.
struct KeyBinding {
    enum class Kind : std::uint8_t {
        moves, // caret and selection
        copies,
        edits
    };

    Kind kind;
    void (*run)(TextView& textView, TextClipboard& clipboard);
};

// By the desktop's standard keys, and by a few that it has no standard for. Null if it does nothing.
const KeyBinding* keyBindingFor(const QKeyEvent& event);

} // namespace tessarine
