#pragma once

#include "Tessarine/document/TextStore.h"
#include "examples/editor/files/FileFormat.h"

#include <cstdint>
#include <expected>
#include <span>

namespace tessarine::editor {

struct DecodedFile {
    TextStore text;
    FileFormat format;
    bool isMalformed = false; // something became U+FFFD: the text must not be written back
};

enum class DecodingError {
    notText, // a NUL, which no text has
};

// Makes a text of a file's bytes. A byte order mark tells the encoding; without one it is UTF-8 if the bytes
// are valid UTF-8, else Windows-1252. So only files with a mark can be malformed. O(n), any thread.
std::expected<DecodedFile, DecodingError> decodeFile(std::span<const std::byte> bytes);

} // namespace tessarine::editor
