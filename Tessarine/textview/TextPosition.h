#pragma once

namespace tessarine {

// What an input system passes around as a place in a text, without knowing what it is.
class TextPosition {
public:
    TextPosition() = default;
    TextPosition(const TextPosition&) = delete;
    TextPosition& operator=(const TextPosition&) = delete;
    virtual ~TextPosition() = default;
};

// The same for a stretch of it.
class TextPositionRange {
public:
    TextPositionRange() = default;
    TextPositionRange(const TextPositionRange&) = delete;
    TextPositionRange& operator=(const TextPositionRange&) = delete;
    virtual ~TextPositionRange() = default;
};

} // namespace tessarine
