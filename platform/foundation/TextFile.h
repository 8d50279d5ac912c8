#pragma once

#include <QtCore/QString>

#include <expected>

namespace platform {

enum class TextFileError { Unreadable, NotAFile, TooLarge, Binary };

// Reads a whole text file of at most 16 MB: UTF-8, with or without a byte order mark, UTF-16 with one, else
// Latin-1. Line breaks stay as they are, the mark is left out. What is no regular file is NotAFile and is
// never waited for; a file with NUL bytes that are not UTF-16 is Binary. Any thread; blocks on the disk.
std::expected<QString, TextFileError> readTextFile(const QString& path);

} // namespace platform
