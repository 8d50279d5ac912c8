#pragma once

#include "Tessarine/document/TextSnapshot.h"

#include <cstdint>

namespace tessarine::editor {

// What a page shows.
struct PageContents {
    TextSnapshot text;
    std::int64_t state; // of its undo manager
};

} // namespace tessarine::editor
