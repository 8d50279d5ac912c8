#include "platform/mirror/Stamp.h"

#include <algorithm>

namespace platform {

std::strong_ordering Stamp::operator<=>(const Stamp& other) const {
    if (const auto order = time <=> other.time; order != std::strong_ordering::equal) return order;
    if (device == other.device) return std::strong_ordering::equal;
    return device < other.device ? std::strong_ordering::less : std::strong_ordering::greater;
}

void VersionVector::add(const Stamp& stamp) {
    auto& time = m_times[stamp.device];
    time = std::max(time, stamp.time);
}

void VersionVector::add(const VersionVector& other) {
    for (const auto& [device, time] : other.m_times)
        add({time, device});
}

bool VersionVector::covers(const Stamp& stamp) const {
    const auto found = m_times.find(stamp.device);
    return found != m_times.end() && found->second >= stamp.time;
}

} // namespace platform
