#pragma once

#include "themes/common/AssetTheme.h"

namespace tessarine::themes {

class OneDarkTheme final : public AssetTheme {
public:
    OneDarkTheme();
};

} // namespace tessarine::themes
