#include "examples/editor/window/TextPlace.h"

#include <QtCore/QStringList>

namespace tessarine::editor {

namespace {

// Zero-based.
std::optional<std::int64_t> number(const QString& text) {
    bool isNumber = false;
    const qlonglong value = text.trimmed().toLongLong(&isNumber);
    return isNumber && value > 0 ? std::optional<std::int64_t>(value - 1) : std::nullopt;
}

} // namespace

std::optional<TextLocation> textPlace(const QString& text) {
    const QStringList parts = text.split(u':');
    if (parts.size() > 2) return std::nullopt;
    const auto line = number(parts.first());
    const auto column = parts.size() == 2 ? number(parts.last()) : std::optional<std::int64_t>(0);
    if (!line || !column) return std::nullopt;
    return TextLocation{*line, *column};
}

QString placeText(const TextLocation& location) {
    return QStringLiteral("%1:%2").arg(location.lineNumber + 1).arg(location.column + 1);
}

} // namespace tessarine::editor
