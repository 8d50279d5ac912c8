#pragma once

namespace tessarine {

// The forms in which a text lies in a file.
enum class TextEncoding { utf8, utf16LittleEndian, utf16BigEndian, latin1 };

// What a file must keep from loading to saving.
struct TextFormat {
    TextEncoding encoding = TextEncoding::utf8;
    bool hasByteOrderMark = false; // never in Latin-1, which has none

    friend bool operator==(const TextFormat&, const TextFormat&) = default;
};

} // namespace tessarine
