#include "Tessarine/document/NodeIdentity.h"

#include <atomic>
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

void NodeIdentity::takeBlock() {
    static std::atomic<std::uint64_t> nextBlock{0};
    serials.next = nextBlock.fetch_add(serialsPerBlock, std::memory_order_relaxed);
    serials.limit = serials.next + serialsPerBlock;
}

} // namespace tessarine
