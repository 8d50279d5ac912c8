#pragma once

#include "Tessarine/editing/CharacterPairs.h"

namespace tessarine::editor {

// Brackets and quotes that are typed together.
CharacterPairs::List bracketPairs();

} // namespace tessarine::editor
