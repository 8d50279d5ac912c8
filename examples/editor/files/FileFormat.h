#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <span>

namespace tessarine::editor {

// The forms in which the editor reads and writes files.
enum class FileEncoding {
    utf8,
    utf16LittleEndian,
    utf16BigEndian,
    utf32LittleEndian,
    utf32BigEndian,
    windows1252,
};

// What a file keeps from opening to saving.
struct FileFormat {
    FileEncoding encoding = FileEncoding::utf8;
    bool hasByteOrderMark = false; // never in Windows-1252, which has none

    friend bool operator==(const FileFormat&, const FileFormat&) = default;
};

// As the status line tells it.
QString displayName(const FileFormat& format);

// U+FEFF in the encoding; empty for Windows-1252.
std::span<const std::uint8_t> byteOrderMark(FileEncoding encoding);

} // namespace tessarine::editor
