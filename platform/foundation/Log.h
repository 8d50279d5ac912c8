#pragma once

#include <QtCore/QString>

namespace platform {

// Writes one line to standard output, as UTF-8, and flushes it, so that a reader at the other end of a pipe
// sees the line before what the program does next. Any thread; lines of two threads never mix.
void logLine(const QString& text);

} // namespace platform
