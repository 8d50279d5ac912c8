#include "themes/common/ColorAssets.h"

#include "Tessarine/base/FatalError.h"

#include <algorithm>
#include <string>

namespace tessarine::themes {

Color ColorAssets::named(std::string_view name) const {
    const auto found = std::ranges::find(m_table, name, &ColorAsset::name);
    if (found == m_table.end()) fatalError("unable to find color named " + std::string(name));
    return Color(RGBAColor::ofHex(found->hex));
}

} // namespace tessarine::themes
