#include "Tessarine/view/RowStyles.h"

#include <algorithm>

namespace tessarine {

std::shared_ptr<const RowStyle> RowStyles::styleOf(const TextAttributes& attributes) {
    for (const auto& known : m_styles)
        if (auto style = known.lock(); style && style->isOf(attributes)) return style;
    removeUnused();
    auto style = std::make_shared<const RowStyle>(attributes);
    m_styles.push_back(style);
    return style;
}

void RowStyles::removeUnused() {
    if (m_styles.size() < m_sizeToSweep) return;
    std::erase_if(m_styles, [](const auto& style) { return style.expired(); });
    m_sizeToSweep = std::max<std::size_t>(64, 2 * m_styles.size());
}

} // namespace tessarine
