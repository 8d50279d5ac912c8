#pragma once

#include "Tessarine/document/TextLocation.h"

#include <QtCore/QString>

#include <optional>

namespace tessarine::editor {

// What a person writes of a place: a line, and behind a colon a column, both counted from one ("12:5").
std::optional<TextLocation> textPlace(const QString& text);

// The other way round.
QString placeText(const TextLocation& location);

} // namespace tessarine::editor
