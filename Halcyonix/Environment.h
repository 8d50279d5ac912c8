#pragma once

#include "platform/screens/appearance/Palette.h"

namespace halcyonix {

// What the kit's pieces share. Main thread.
class Environment {
public:
    static Environment& shared();

    // The tint of whatever has no colour of its own. Read when a piece is made.
    platform::Asset primaryColor = platform::Asset::HalcyonixBlue;
};

} // namespace halcyonix
