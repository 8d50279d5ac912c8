#pragma once

#include "themes/common/AssetTheme.h"

namespace tessarine::themes {

class TomorrowNightTheme final : public AssetTheme {
public:
    TomorrowNightTheme();
};

} // namespace tessarine::themes
