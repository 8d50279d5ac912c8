#include "Tessarine/document/NodeSlabPool.h"

#include "Tessarine/document/SlabMemory.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace tessarine {

namespace {

constexpr std::uint16_t noSlot = 0xFFFF;

} // namespace

// Stands in front of its slots. A free slot that has been used holds the index of the next such slot.
struct NodeSlabPool::Slab {
    std::shared_ptr<NodeSlabPool> pool;
    Slab* previousOpen = nullptr;
    Slab* nextOpen = nullptr;
    std::uint16_t capacity = 0;
    std::uint16_t live = 0;
    std::uint16_t firstUnused = 0; // slots from there on were never handed out
    std::uint16_t firstFree = noSlot;

    // Slots start on a cache line.
    static constexpr std::size_t headerBytes = SlabMemory::alignment;

    bool isFull() const { return live == capacity; }
};

std::shared_ptr<NodeSlabPool> NodeSlabPool::create(std::size_t nodeSize, void* owner) {
    struct Shareable : NodeSlabPool {
        Shareable(std::size_t size, void* pointer)
            : NodeSlabPool(size, pointer) {}
    };

    return std::make_shared<Shareable>(nodeSize, owner);
}

NodeSlabPool::Slot NodeSlabPool::allocate() {
    Slab& slab = m_openSlabs ? *m_openSlabs : addSlab();
    if (slab.firstFree == noSlot) return takeFrom(slab, slab.firstUnused++);
    const std::uint16_t index = slab.firstFree;
    SlabMemory::allow(addressOf(slab, index), m_nodeSize);
    std::memcpy(&slab.firstFree, addressOf(slab, index), sizeof slab.firstFree);
    return takeFrom(slab, index);
}

NodeSlabPool::Slot NodeSlabPool::allocateInOrder() {
    if (!m_newestSlab || m_newestSlab->firstUnused == m_newestSlab->capacity) m_newestSlab = &addSlab();
    return takeFrom(*m_newestSlab, m_newestSlab->firstUnused++);
}

void NodeSlabPool::release(Slot slot, std::size_t nodeSize) {
    Slab& slab = slabOf(slot, nodeSize);
    slab.pool->releaseInto(slab, slot);
}

NodeSlabPool& NodeSlabPool::poolOf(Slot slot, std::size_t nodeSize) {
    return *slabOf(slot, nodeSize).pool;
}

void NodeSlabPool::detachOwner() {
    m_owner = nullptr;
    for (Slab* slab = m_openSlabs; slab;) {
        Slab& current = *std::exchange(slab, slab->nextOpen);
        if (current.live == 0) removeSlab(current);
    }
}

NodeSlabPool::Slab& NodeSlabPool::slabOf(Slot slot, std::size_t nodeSize) {
    std::byte* first = static_cast<std::byte*>(slot.memory) - slot.index * nodeSize - Slab::headerBytes;
    return *std::launder(reinterpret_cast<Slab*>(first));
}

std::size_t NodeSlabPool::largestCapacity() const {
    return std::min((SlabMemory::slabBytesAtMost - Slab::headerBytes) / m_nodeSize, std::size_t{noSlot});
}

std::size_t NodeSlabPool::bytesOfSlab(std::size_t capacity) const {
    if (capacity == largestCapacity()) return SlabMemory::slabBytesAtMost;
    return Slab::headerBytes + capacity * m_nodeSize;
}

NodeSlabPool::Slab& NodeSlabPool::addSlab() {
    static_assert(sizeof(Slab) <= Slab::headerBytes);
    const std::size_t capacity = std::min(m_nextCapacity, largestCapacity());
    m_nextCapacity = capacity * 2;
    Slab& slab = *::new (SlabMemory::allocate(bytesOfSlab(capacity))) Slab;
    slab.pool = shared_from_this();
    slab.capacity = static_cast<std::uint16_t>(capacity);
    SlabMemory::forbid(addressOf(slab, 0), capacity * m_nodeSize);
    open(slab);
    return slab;
}

void NodeSlabPool::removeSlab(Slab& slab) {
    close(slab);
    if (m_newestSlab == &slab) m_newestSlab = nullptr;
    const std::size_t bytes = bytesOfSlab(slab.capacity);
    const std::shared_ptr<NodeSlabPool> pool = std::move(slab.pool); // this pool may end with the function
    slab.~Slab();
    SlabMemory::release(&slab, bytes);
}

NodeSlabPool::Slot NodeSlabPool::takeFrom(Slab& slab, std::uint16_t index) {
    std::byte* memory = addressOf(slab, index);
    SlabMemory::allow(memory, m_nodeSize);
    ++slab.live;
    if (slab.isFull()) close(slab);
    return {memory, index};
}

void NodeSlabPool::releaseInto(Slab& slab, Slot slot) {
    if (slab.isFull()) open(slab);
    std::memcpy(slot.memory, &slab.firstFree, sizeof slab.firstFree);
    slab.firstFree = slot.index;
    SlabMemory::forbid(slot.memory, m_nodeSize);
    --slab.live;
    // One empty slab is kept, lest an edit at the edge of a slab asks the system each time.
    const bool isOnlyRoom = m_openSlabs == &slab && !slab.nextOpen;
    if (slab.live == 0 && (!m_owner || !isOnlyRoom)) removeSlab(slab);
}

void NodeSlabPool::open(Slab& slab) {
    slab.previousOpen = nullptr;
    slab.nextOpen = m_openSlabs;
    if (m_openSlabs) m_openSlabs->previousOpen = &slab;
    m_openSlabs = &slab;
}

void NodeSlabPool::close(Slab& slab) {
    if (slab.nextOpen) slab.nextOpen->previousOpen = slab.previousOpen;
    (slab.previousOpen ? slab.previousOpen->nextOpen : m_openSlabs) = slab.nextOpen;
}

std::byte* NodeSlabPool::addressOf(Slab& slab, std::uint16_t index) const {
    return reinterpret_cast<std::byte*>(&slab) + Slab::headerBytes + index * m_nodeSize;
}

} // namespace tessarine
