#pragma once

#include "Tessarine/document/TextSnapshot.h"
#include "examples/editor/files/FileFormat.h"

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <optional>
#include <span>

namespace tessarine::editor {

// Where the first character stands that the encoding does not have; nothing where it has all. UTF-8 and
// UTF-32 have no lone surrogates, UTF-16 has everything. O(n).
std::optional<std::int64_t> firstUnencodable(const TextSnapshot& text, FileEncoding encoding);

// UTF-8 if it has all of the text, else UTF-16.
FileFormat formatThatHolds(const TextSnapshot& text);

// Gives the bytes of the text to the sink in order, some thousand at a time. Any thread.
// Requires that the encoding has all of the text.
void encodeFile(const TextSnapshot& text, const FileFormat& format,
                const std::function<void(std::span<const std::byte>)>& sink);

} // namespace tessarine::editor
