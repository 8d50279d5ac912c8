#pragma once

#include <atomic>
#include <concepts>
#include <cstdint>
#include <memory>
#include <utility>

namespace tessarine {

// What the chunks and the branches of a text's tree have in common: a height above the chunks, a length in
// code units and an atomic count of owners. A node with one owner may be changed in place by that owner; a
// node with more is never changed again, so any thread may read it.
class TextNode {
public:
    virtual ~TextNode() = default;
    TextNode& operator=(const TextNode&) = delete;

    int height() const { return m_height; } // 0 for a chunk

    std::int64_t length() const { return m_length; }

protected:
    explicit TextNode(int height)
        : m_height(height) {}

    // The copy has no owner yet.
    TextNode(const TextNode& other)
        : m_height(other.m_height)
        , m_length(other.m_length) {}

    void setLength(std::int64_t length) { m_length = length; }

private:
    template <typename Node>
    friend class TextRef;

    mutable std::atomic<std::int32_t> m_owners = 0;
    std::int32_t m_height;
    std::int64_t m_length = 0;
};

// Shares a node; the last owner destroys it, on whatever thread that is. Destruction goes as deep as the tree
// is high.
template <typename Node>
class TextRef {
public:
    TextRef() = default;

    TextRef(std::nullptr_t) {} // NOLINT(google-explicit-constructor): the empty text

    template <typename... Arguments>
    static TextRef make(Arguments&&... arguments) {
        return TextRef(std::make_unique<Node>(std::forward<Arguments>(arguments)...).release());
    }

    TextRef(const TextRef& other)
        : TextRef(other.m_node) {}

    TextRef(TextRef&& other) noexcept
        : m_node(std::exchange(other.m_node, nullptr)) {}

    template <std::derived_from<Node> Derived>
    TextRef(TextRef<Derived> other) // NOLINT(google-explicit-constructor): a chunk is a node
        : m_node(other.detach()) {}

    TextRef& operator=(TextRef other) noexcept {
        std::swap(m_node, other.m_node);
        return *this;
    }

    ~TextRef() {
        if (m_node && m_node->m_owners.fetch_sub(1, std::memory_order_acq_rel) == 1)
            std::unique_ptr<Node>(m_node).reset();
    }

    Node* get() const { return m_node; }

    Node& operator*() const { return *m_node; }

    Node* operator->() const { return m_node; }

    explicit operator bool() const { return m_node != nullptr; }

    // The acquire makes the reads of an owner that has let go happen before the change that follows.
    bool isUnique() const { return m_node->m_owners.load(std::memory_order_acquire) == 1; }

    // Gives its share away, uncounted.
    Node* detach() { return std::exchange(m_node, nullptr); }

private:
    explicit TextRef(Node* node)
        : m_node(node) {
        if (m_node) m_node->m_owners.fetch_add(1, std::memory_order_relaxed);
    }

    Node* m_node = nullptr;
};

using TextNodeRef = TextRef<TextNode>; // null is the empty text

// The node behind `ref`, copied first if it is shared. Requires a Node there.
template <std::derived_from<TextNode> Node>
Node& unshared(TextNodeRef& ref) {
    if (!ref.isUnique()) ref = TextRef<Node>::make(static_cast<const Node&>(*ref));
    return static_cast<Node&>(*ref);
}

} // namespace tessarine
