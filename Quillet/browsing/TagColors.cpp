#include "Quillet/browsing/TagColors.h"

#include "platform/foundation/FatalError.h"

namespace quillet {

platform::Asset tagColor(int colorIndex) {
    if (colorIndex < 0 || colorIndex >= static_cast<int>(tagColors.size()))
        platform::fatalError("A tag's colorIndex is outside the colour table");
    return tagColors[static_cast<std::size_t>(colorIndex)].asset;
}

} // namespace quillet
