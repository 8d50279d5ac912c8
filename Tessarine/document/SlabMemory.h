#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define TESSARINE_CHECKS_ADDRESSES 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TESSARINE_CHECKS_ADDRESSES 1
#endif
#endif

namespace tessarine {

// The raw memory of one slab, aligned to a cache line. Slabs of slabBytesAtMost lie on a huge page where
// the system has them: a look-up in a large tree would otherwise spend its time on page tables.
class SlabMemory {
public:
    static constexpr std::size_t slabBytesAtMost = std::size_t{2} << 20;
    static constexpr std::size_t alignment = 64;

    static void* allocate(std::size_t bytes);
    static void release(void* memory, std::size_t bytes);

    // Under an address checker, forbids or allows to touch [memory, memory + bytes); else nothing.
#ifdef TESSARINE_CHECKS_ADDRESSES
    static void forbid(void* memory, std::size_t bytes);
    static void allow(void* memory, std::size_t bytes);
#else
    static void forbid(void*, std::size_t) {}

    static void allow(void*, std::size_t) {}
#endif
};

} // namespace tessarine
