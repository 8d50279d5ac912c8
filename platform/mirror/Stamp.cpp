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

void VersionVector::rename(const QUuid& device, std::uint64_t time, const QUuid& newDevice) {
    const auto found = m_times.find(device);
    if (found == m_times.end() || found->second <= time) return;
    add({found->second, newDevice});
    found->second = time;
    if (time == 0) m_times.erase(found);
}

bool VersionVector::covers(const Stamp& stamp) const {
    const auto found = m_times.find(stamp.device);
    return found != m_times.end() && found->second >= stamp.time;
}

bool VersionVector::covers(const VersionVector& other) const {
    return std::ranges::all_of(other.m_times,
                               [this](const auto& entry) { return covers({entry.second, entry.first}); });
}

std::uint64_t VersionVector::timeOf(const QUuid& device) const {
    const auto found = m_times.find(device);
    return found == m_times.end() ? 0 : found->second;
}

} // namespace platform
