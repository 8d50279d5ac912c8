#pragma once

#include "Tessarine/document/DetectedIndentStrategy.h"
#include "Tessarine/document/IndentStrategy.h"

#include <QtCore/QString>

#include <span>

namespace tessarine::editor {

// What one can choose from.
std::span<const IndentStrategy> indentStrategies();

// "Spaces: 4", "Tabs: 8".
QString displayName(const IndentStrategy& strategy);

// How to go on in a text; one that is not indented gets what is usual.
IndentStrategy indentStrategy(const DetectedIndentStrategy& detected);

} // namespace tessarine::editor
