#include "Tessarine/document/TextBalance.h"

#include "Tessarine/base/FatalError.h"

#include <algorithm>

namespace tessarine {

namespace {

// The children [first, limit) as a tree of their own. The branch keeps holes there and is to be dropped.
TextNodeRef slice(TextBranch& branch, std::int32_t first, std::int32_t limit) {
    if (first == limit) return nullptr;
    if (first + 1 == limit) return std::move(branch.childForChange(first));
    auto part = TextRef<TextBranch>::make(branch.height());
    for (std::int32_t i = first; i < limit; ++i)
        part->append(std::move(branch.childForChange(i)));
    return part;
}

} // namespace

TextNodeRef TextBalance::join(TextNodeRef left, TextNodeRef right) const {
    if (!left) return right;
    if (!right) return left;
    return rootOf(joinNodes(std::move(left), std::move(right)));
}

TextNodeRef TextBalance::rootOf(Nodes nodes) const {
    if (!nodes.second) return std::move(nodes.first);
    auto root = TextRef<TextBranch>::make(nodes.first->height() + 1);
    root->append(std::move(nodes.first));
    root->append(std::move(nodes.second));
    return root;
}

TextBalance::Nodes TextBalance::joinNodes(TextNodeRef left, TextNodeRef right) const {
    if (left->height() == right->height())
        return left->height() == 0 ? joinChunks(std::move(left), std::move(right))
                                   : joinBranches(std::move(left), std::move(right));
    if (left->height() > right->height()) {
        auto& parent = unshared<TextBranch>(left);
        Nodes nodes = joinNodes(parent.take(parent.count() - 1), std::move(right));
        parent.append(std::move(nodes.first));
        if (nodes.second) parent.append(std::move(nodes.second));
        return splitIfTooLarge(std::move(left));
    }
    auto& parent = unshared<TextBranch>(right);
    Nodes nodes = joinNodes(std::move(left), parent.take(0));
    if (nodes.second) parent.insert(0, std::move(nodes.second));
    parent.insert(0, std::move(nodes.first));
    return splitIfTooLarge(std::move(right));
}

TextBalance::Nodes TextBalance::joinChunks(TextNodeRef left, TextNodeRef right) const {
    const std::int64_t total = left->length() + right->length();
    if (total > m_limits.chunkUnits && !isTooSmall(*left) && !isTooSmall(*right))
        return {std::move(left), std::move(right)};
    auto& chunk = unshared<TextChunk>(left);
    chunk.append(static_cast<const TextChunk&>(*right));
    if (total <= m_limits.chunkUnits) return {std::move(left), nullptr};
    TextNodeRef tail = chunk.splitOff(static_cast<std::int32_t>(total / 2));
    return {std::move(left), std::move(tail)};
}

TextBalance::Nodes TextBalance::joinBranches(TextNodeRef left, TextNodeRef right) const {
    auto& first = unshared<TextBranch>(left);
    auto& second = unshared<TextBranch>(right);
    const std::int32_t total = first.count() + second.count();
    if (total <= m_limits.branchChildren) {
        first.appendFrom(second, 0);
        return {std::move(left), nullptr};
    }
    if (isTooSmall(first) || isTooSmall(second)) {
        while (first.count() < total / 2)
            first.append(second.take(0));
        while (second.count() < total / 2)
            second.insert(0, first.take(first.count() - 1));
    }
    return {std::move(left), std::move(right)};
}

TextBalance::Nodes TextBalance::splitIfTooLarge(TextNodeRef branch) const {
    auto& first = static_cast<TextBranch&>(*branch);
    if (first.count() <= m_limits.branchChildren) return {std::move(branch), nullptr};
    auto second = TextRef<TextBranch>::make(first.height());
    second->appendFrom(first, first.count() / 2);
    return {std::move(branch), std::move(second)};
}

std::pair<TextNodeRef, TextNodeRef> TextBalance::split(TextNodeRef tree, std::int64_t position) const {
    if (!tree || position == tree->length()) return {std::move(tree), nullptr};
    if (position == 0) return {nullptr, std::move(tree)};
    if (tree->height() == 0) {
        TextNodeRef tail = unshared<TextChunk>(tree).splitOff(static_cast<std::int32_t>(position));
        return {std::move(tree), std::move(tail)};
    }
    auto& branch = unshared<TextBranch>(tree);
    const std::int32_t index = branch.childAt(position);
    auto [left, right] = split(std::move(branch.childForChange(index)), position);
    return {join(slice(branch, 0, index), std::move(left)),
            join(std::move(right), slice(branch, index + 1, branch.count()))};
}

TextNodeRef TextBalance::build(std::vector<TextNodeRef> parts) const {
    while (parts.size() > 1) {
        const std::size_t groups = (parts.size() + m_limits.branchChildren - 1) / m_limits.branchChildren;
        const int height = parts.front()->height() + 1;
        std::vector<TextNodeRef> branches;
        for (std::size_t group = 0; group < groups; ++group) {
            auto branch = TextRef<TextBranch>::make(height);
            const std::size_t limit = parts.size() * (group + 1) / groups;
            for (std::size_t i = parts.size() * group / groups; i < limit; ++i)
                branch->append(std::move(parts[i]));
            branches.push_back(std::move(branch));
        }
        parts = std::move(branches);
    }
    return parts.empty() ? nullptr : std::move(parts.front());
}

void TextBalance::replaceInChunk(TextNodeRef& tree, std::int64_t position, std::int64_t length,
                                 std::span<const char16_t> units) const {
    TextNodeRef sibling = replaceBelow(tree, position, length, units);
    tree = rootOf({std::move(tree), std::move(sibling)});
    while (tree->height() > 0 && static_cast<TextBranch&>(*tree).count() == 1)
        tree = unshared<TextBranch>(tree).take(0);
    if (tree->length() == 0) tree = nullptr;
}

// Gives the second half of a node that became too large.
TextNodeRef TextBalance::replaceBelow(TextNodeRef& node, std::int64_t position, std::int64_t length,
                                      std::span<const char16_t> units) const {
    if (node->height() == 0) {
        auto& chunk = unshared<TextChunk>(node);
        chunk.replace(static_cast<std::int32_t>(position), static_cast<std::int32_t>(length), units);
        return chunk.size() > m_limits.chunkUnits ? chunk.splitOff(chunk.size() / 2) : nullptr;
    }
    auto& branch = unshared<TextBranch>(node);
    const std::int32_t index = length == 0 ? branch.childForInsertion(position) : branch.childAt(position);
    TextNodeRef sibling = replaceBelow(branch.childForChange(index), position, length, units);
    branch.changedChild(index);
    if (sibling)
        branch.insert(index + 1, std::move(sibling));
    else if (isTooSmall(branch.child(index)))
        mend(branch, index);
    auto [first, second] = splitIfTooLarge(std::move(node));
    node = std::move(first);
    return second;
}

// Joins a child that is too small with a neighbour.
void TextBalance::mend(TextBranch& parent, std::int32_t index) const {
    const std::int32_t left = std::max(index - 1, 0);
    TextNodeRef first = parent.take(left);
    Nodes nodes = joinNodes(std::move(first), parent.take(left));
    if (nodes.second) parent.insert(left, std::move(nodes.second));
    parent.insert(left, std::move(nodes.first));
}

bool TextBalance::isTooSmall(const TextNode& node) const {
    return node.height() == 0 ? node.length() < m_limits.leastChunkUnits()
                              : static_cast<const TextBranch&>(node).count() < m_limits.leastChildren();
}

void TextBalance::check(const TextNodeRef& tree) const {
    if (tree) checkNode(*tree, true);
}

void TextBalance::checkNode(const TextNode& node, bool isRoot) const {
    if (!isRoot && isTooSmall(node)) fatalError("A part of a text is too small.");
    if (node.length() == 0) fatalError("A part of a text is empty.");
    if (node.height() == 0) {
        if (node.length() > m_limits.chunkUnits) fatalError("A chunk is too large.");
        return static_cast<const TextChunk&>(node).check();
    }
    const auto& branch = static_cast<const TextBranch&>(node);
    if (branch.count() < 2 || branch.count() > m_limits.branchChildren)
        fatalError("A branch has a wrong number of children.");
    std::int64_t length = 0;
    for (std::int32_t i = 0; i < branch.count(); ++i) {
        if (branch.child(i).height() + 1 != node.height()) fatalError("A child has a wrong height.");
        if (branch.childLength(i) != branch.child(i).length())
            fatalError("A branch does not know a child's length.");
        length += branch.child(i).length();
        checkNode(branch.child(i), false);
    }
    if (length != node.length()) fatalError("A branch does not know its length.");
}

} // namespace tessarine
