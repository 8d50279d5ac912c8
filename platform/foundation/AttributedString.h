#pragma once

#include <QtCore/QString>
#include <QtGui/QRgb>

#include <optional>
#include <vector>

namespace platform {

// What a run of text looks like. An absent colour means the colour of the surroundings.
struct TextAttributes {
    std::optional<QRgb> foreground;
    std::optional<QRgb> background;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const TextAttributes&) const = default;
};

// [start, limit) in UTF-16 code units.
struct AttributeRun {
    qsizetype start = 0;
    qsizetype limit = 0;
    TextAttributes attributes;

    bool operator==(const AttributeRun&) const = default;
};

// A text with its attributes. Runs are sorted, disjoint, non-empty and inside the text; text between runs has
// no attributes of its own. Equal values look equal.
struct AttributedString {
    QString string;
    std::vector<AttributeRun> runs;

    bool operator==(const AttributedString&) const = default;
};

} // namespace platform
