#pragma once

#include <QtCore/QUuid>

#include <compare>
#include <cstdint>
#include <map>

namespace platform {

// When a write was made and by which device. Later writes win; at the same time the greater device.
struct Stamp {
    // Hybrid logical time: milliseconds since 1970 UTC above a counter in the low 16 bits.
    std::uint64_t time = 0;
    QUuid device;

    bool operator==(const Stamp&) const = default;
    std::strong_ordering operator<=>(const Stamp& other) const;
};

// The latest write of each device that somebody has seen; it stands for all earlier ones of that device too.
// So the stamps of one device on one object must only ever grow.
class VersionVector {
public:
    void add(const Stamp& stamp);
    void add(const VersionVector& other);
    // Of the writes of `device`, those later than `time` were another's.
    void rename(const QUuid& device, std::uint64_t time, const QUuid& newDevice);
    bool covers(const Stamp& stamp) const;
    bool covers(const VersionVector& other) const;
    std::uint64_t timeOf(const QUuid& device) const; // 0 where nothing of it was seen

    bool isEmpty() const { return m_times.empty(); }

    const std::map<QUuid, std::uint64_t>& times() const { return m_times; }

    bool operator==(const VersionVector&) const = default;

private:
    std::map<QUuid, std::uint64_t> m_times;
};

} // namespace platform
