#pragma once

#include "Tessarine/base/Color.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace tessarine::themes {

// An entry of a module's table of colours, which the build makes of a file beside the module's sources.
struct ColorAsset {
    std::string_view name;
    std::uint32_t hex; // 0xRRGGBB
};

// The colours that a module brings along. It borrows the table.
class ColorAssets {
public:
    explicit constexpr ColorAssets(std::span<const ColorAsset> table)
        : m_table(table) {}

    // A name that is not there stops the program: the table is part of it.
    Color named(std::string_view name) const;

private:
    std::span<const ColorAsset> m_table;
};

} // namespace tessarine::themes
