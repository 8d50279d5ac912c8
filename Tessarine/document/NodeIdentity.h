#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace tessarine {

// A 128-bit identity that is never given out twice: a half that is random for each process, and a serial.
// Only the serial is stored, 8 bytes; the other half is the same for all of a process.
// Thread: identities may be made on any thread; each takes serials in blocks. Cost: a few instructions.
class NodeIdentity {
public:
    // A fresh identity.
    NodeIdentity()
        : m_serial(nextSerial()) {}

    std::uint64_t upperHalf() const;

    std::uint64_t lowerHalf() const { return m_serial; }

    // Both halves, written as a UUID is.
    std::string text() const;

    friend bool operator==(const NodeIdentity&, const NodeIdentity&) = default;

private:
    struct SerialBlock {
        std::uint64_t next = 0;
        std::uint64_t limit = 0;
    };

    static std::uint64_t nextSerial() {
        if (serials.next == serials.limit) takeBlock();
        return serials.next++;
    }

    static void takeBlock();

    static thread_local constinit SerialBlock serials;

    std::uint64_t m_serial;
};

inline thread_local constinit NodeIdentity::SerialBlock NodeIdentity::serials;

} // namespace tessarine

template <>
struct std::hash<tessarine::NodeIdentity> {
    std::size_t operator()(const tessarine::NodeIdentity& identity) const noexcept {
        return std::hash<std::uint64_t>()(identity.lowerHalf());
    }
};
