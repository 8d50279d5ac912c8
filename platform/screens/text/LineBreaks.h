#pragma once

#include "platform/foundation/AttributedString.h"

#include <QtCore/QString>

#include <cstdint>
#include <vector>

namespace platform {

// The breaks that a text editor takes for one and the same, kept apart so that a text comes back as it was.
enum class LineBreak : std::uint8_t { Lf, CrLf, Cr, ParagraphSeparator, FrameStart, FrameEnd };

// A text with every break as '\n', and which break each of them stands for, in order.
struct SplitText {
    QString text;
    std::vector<LineBreak> breaks;
};

SplitText splitBreaks(const QString& text);

// Where runs of `text` lie once it is split.
std::vector<AttributeRun> splitRuns(const QString& text, const std::vector<AttributeRun>& runs);

// The reverse. Every '\n' of `text` takes the next break; a '\n' beyond the last break stays.
QString joinBreaks(const QString& text, const std::vector<LineBreak>& breaks);

// The break that most lines end with, which a new line should have; Lf for a text without any.
LineBreak dominantBreak(const std::vector<LineBreak>& breaks);

} // namespace platform
