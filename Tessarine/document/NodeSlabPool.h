#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tessarine {

// Memory for the nodes of one tree, in slabs of a few nodes at first and of 2 MiB later on.
//
// Ownership: the tree and each slab share the pool; a slab is given back when its last node is gone, so
// that nodes may outlive the tree. A node finds its pool, and through it the tree, by its slot: 2 bytes.
// Thread: as the nodes, one thread at a time. Cost: O(1); no header for the single node.
class NodeSlabPool : public std::enable_shared_from_this<NodeSlabPool> {
public:
    struct Slot {
        void* memory;
        std::uint16_t index;
    };

    // `owner` is what owner() tells until detachOwner().
    static std::shared_ptr<NodeSlabPool> create(std::size_t nodeSize, void* owner);

    NodeSlabPool(const NodeSlabPool&) = delete;
    NodeSlabPool& operator=(const NodeSlabPool&) = delete;
    ~NodeSlabPool() = default;

    // A place for a node; holes of released nodes are filled first.
    Slot allocate();

    // A place behind the one handed out before: nodes made in a row lie in a row.
    Slot allocateInOrder();

    // Gives a slot back. May end the life of its pool.
    static void release(Slot slot, std::size_t nodeSize);

    static NodeSlabPool& poolOf(Slot slot, std::size_t nodeSize);

    // The tree, or null once it is gone.
    void* owner() const { return m_owner; }

    void detachOwner();

private:
    struct Slab;

    NodeSlabPool(std::size_t nodeSize, void* owner)
        : m_nodeSize(nodeSize)
        , m_owner(owner) {}

    static Slab& slabOf(Slot slot, std::size_t nodeSize);
    std::size_t largestCapacity() const;
    std::size_t bytesOfSlab(std::size_t capacity) const;
    Slab& addSlab();
    void removeSlab(Slab& slab);
    Slot takeFrom(Slab& slab, std::uint16_t index);
    void releaseInto(Slab& slab, Slot slot);
    void open(Slab& slab);
    void close(Slab& slab);
    std::byte* addressOf(Slab& slab, std::uint16_t index) const;

    const std::size_t m_nodeSize;
    void* m_owner;
    Slab* m_openSlabs = nullptr;    // doubly linked: those with room
    Slab* m_newestSlab = nullptr;   // where nodes are made in order
    std::size_t m_nextCapacity = 4; // nodes of the slab that comes next
};

} // namespace tessarine
