#pragma once

#include "themes/common/AssetTheme.h"

namespace tessarine::themes {

class TomorrowTheme final : public AssetTheme {
public:
    TomorrowTheme();
};

} // namespace tessarine::themes
