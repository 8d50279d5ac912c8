#include "Tessarine/layout/manager/LineWidths.h"

#include <algorithm>

namespace tessarine {

bool LineWidths::set(const DocumentLineNodeID& lineID, double width) {
    const auto [entry, isNew] = m_lineWidths.try_emplace(lineID, width);
    if (!isNew && entry->second == width) return false;
    if (!m_lineIDTrackingWidth) {
        entry->second = width;
        return true;
    }
    const bool isTracked = m_lineIDTrackingWidth == lineID;
    const double trackedWidth = m_lineWidths.at(*m_lineIDTrackingWidth);
    entry->second = width;
    if (width >= trackedWidth)
        m_lineIDTrackingWidth = lineID;
    else if (isTracked)
        m_lineIDTrackingWidth.reset(); // another one may be the widest now
    return isTracked || width >= trackedWidth;
}

bool LineWidths::remove(const DocumentLineNodeID& lineID) {
    m_lineWidths.erase(lineID);
    if (m_lineIDTrackingWidth != lineID) return false;
    m_lineIDTrackingWidth.reset();
    return true;
}

void LineWidths::removeAll() {
    m_lineWidths.clear();
    m_lineIDTrackingWidth.reset();
}

std::optional<double> LineWidths::widest() {
    if (m_lineWidths.empty()) return std::nullopt;
    if (!m_lineIDTrackingWidth) findWidest();
    return m_lineWidths.at(*m_lineIDTrackingWidth);
}

void LineWidths::findWidest() {
    const auto widest =
        std::ranges::max_element(m_lineWidths, {}, [](const auto& entry) { return entry.second; });
    m_lineIDTrackingWidth = widest->first;
}

} // namespace tessarine
