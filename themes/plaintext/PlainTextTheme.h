#pragma once

#include "themes/common/FixedTheme.h"

namespace tessarine::themes {

// Black on white, whatever the text says.
class PlainTextTheme final : public FixedTheme {
public:
    using FixedTheme::textColor;

    PlainTextTheme();

    std::optional<Color> textColor(std::string_view /*captureName*/) const override { return std::nullopt; }
};

} // namespace tessarine::themes
