#pragma once

#include <cstdint>

namespace tessarine {

// Along the text, or on the screen.
enum class TextDirection : std::uint8_t { forward, backward, right, left, up, down };

// What stands in the text for a direction on the screen, where there is such a thing.
constexpr TextDirection storageDirection(TextDirection direction) {
    if (direction == TextDirection::right) return TextDirection::forward;
    if (direction == TextDirection::left) return TextDirection::backward;
    return direction;
}

} // namespace tessarine
