#pragma once

#include <cstddef>
#include <functional>
#include <utility>

namespace tessarine {

// Shared ownership of a node by a count inside the node. The count is not atomic: a tree, its nodes and all
// references to them belong to one thread at a time, and are handed over whole. 8 bytes.
template <class Node>
class RedBlackTreeNodeReference {
public:
    RedBlackTreeNodeReference() = default;

    explicit RedBlackTreeNodeReference(Node* node)
        : m_node(node) {
        if (m_node) m_node->retain();
    }

    RedBlackTreeNodeReference(const RedBlackTreeNodeReference& other)
        : RedBlackTreeNodeReference(other.m_node) {}

    RedBlackTreeNodeReference(RedBlackTreeNodeReference&& other) noexcept
        : m_node(std::exchange(other.m_node, nullptr)) {}

    RedBlackTreeNodeReference& operator=(RedBlackTreeNodeReference other) noexcept {
        std::swap(m_node, other.m_node);
        return *this;
    }

    ~RedBlackTreeNodeReference() {
        if (m_node) m_node->release();
    }

    // Takes over a count that the caller holds.
    static RedBlackTreeNodeReference adopt(Node* node) {
        RedBlackTreeNodeReference reference;
        reference.m_node = node;
        return reference;
    }

    // Gives the count to the caller.
    [[nodiscard]] Node* disown() { return std::exchange(m_node, nullptr); }

    Node* get() const { return m_node; }

    Node& operator*() const { return *m_node; }

    Node* operator->() const { return m_node; }

    explicit operator bool() const { return m_node != nullptr; }

    friend bool operator==(const RedBlackTreeNodeReference& a, const RedBlackTreeNodeReference& b) {
        return a.m_node == b.m_node || (a.m_node && b.m_node && *a.m_node == *b.m_node);
    }

private:
    Node* m_node = nullptr;
};

} // namespace tessarine

template <class Node>
struct std::hash<tessarine::RedBlackTreeNodeReference<Node>> {
    std::size_t operator()(const tessarine::RedBlackTreeNodeReference<Node>& reference) const noexcept {
        return reference ? std::hash<Node>()(*reference) : 0;
    }
};
