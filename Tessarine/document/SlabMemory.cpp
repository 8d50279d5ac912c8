#include "Tessarine/document/SlabMemory.h"

#include <cstdint>
#include <new>
#include <sys/mman.h>

#ifdef TESSARINE_CHECKS_ADDRESSES
#include <sanitizer/asan_interface.h>
#endif

namespace tessarine {

namespace {

// Maps twice the size and gives back what lies around the aligned half.
void* mapAligned(std::size_t bytes) {
    void* mapped =
        mmap(nullptr, 2 * bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (mapped == MAP_FAILED) throw std::bad_alloc();
    auto* first = static_cast<std::byte*>(mapped);
    const std::size_t before = (bytes - reinterpret_cast<std::uintptr_t>(first) % bytes) % bytes;
    if (before > 0) munmap(first, before);
    munmap(first + before + bytes, bytes - before);
    madvise(first + before, bytes, MADV_HUGEPAGE); // a wish; the memory serves without
    return first + before;
}

} // namespace

void* SlabMemory::allocate(std::size_t bytes) {
    if (bytes == slabBytesAtMost) return mapAligned(bytes);
    return ::operator new(bytes, std::align_val_t(alignment));
}

void SlabMemory::release(void* memory, std::size_t bytes) {
    allow(memory, bytes);
    if (bytes == slabBytesAtMost)
        munmap(memory, bytes);
    else
        ::operator delete(memory, std::align_val_t(alignment));
}

#ifdef TESSARINE_CHECKS_ADDRESSES
void SlabMemory::forbid(void* memory, std::size_t bytes) {
    __asan_poison_memory_region(memory, bytes);
}

void SlabMemory::allow(void* memory, std::size_t bytes) {
    __asan_unpoison_memory_region(memory, bytes);
}
#endif

} // namespace tessarine
