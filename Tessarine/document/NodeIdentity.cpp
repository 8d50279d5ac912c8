#include "Tessarine/document/NodeIdentity.h"

#include <array>
#include <atomic>
#include <cinttypes>
#include <cstdio>
#include <random>

namespace tessarine {

namespace {

constexpr std::uint64_t serialsPerBlock = 4096;

std::uint64_t randomHalf() {
    std::random_device device;
    return static_cast<std::uint64_t>(device()) << 32 | device();
}

} // namespace

std::uint64_t NodeIdentity::upperHalf() const {
    static const std::uint64_t half = randomHalf();
    return half;
}

std::string NodeIdentity::text() const {
    const std::uint64_t upper = upperHalf();
    std::array<char, 37> digits{};
    (void)std::snprintf(digits.data(), digits.size(),
                        "%08" PRIX64 "-%04" PRIX64 "-%04" PRIX64 "-%04" PRIX64 "-%012" PRIX64, upper >> 32,
                        upper >> 16 & 0xFFFF, upper & 0xFFFF, m_serial >> 48, m_serial & 0xFFFF'FFFF'FFFF);
    return digits.data();
}

void NodeIdentity::takeBlock() {
    static std::atomic<std::uint64_t> nextBlock{0};
    serials.next = nextBlock.fetch_add(serialsPerBlock, std::memory_order_relaxed);
    serials.limit = serials.next + serialsPerBlock;
}

} // namespace tessarine
