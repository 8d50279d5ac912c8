#pragma once

#include "Quillet/browsing/SnippetOrder.h"
#include "Quillet/core/Folder.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/core/Tag.h"

#include <QtCore/QString>

#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace quillet {

// What a row of the home list is. Snippets, tags and folders are equal by identity, the rest by value.
struct SectionHeader {
    QString text;
    QString systemImage;

    bool operator==(const SectionHeader&) const = default;
};

struct LanguageHeader {
    QString language;
    std::vector<std::shared_ptr<Snippet>> snippets;

    bool operator==(const LanguageHeader&) const = default;
};

using ListItemType = std::variant<SectionHeader, LanguageHeader, std::shared_ptr<Snippet>,
                                  std::shared_ptr<Tag>, std::shared_ptr<Folder>>;

// Snippets in the order in which they stand below a row, as numbers of an order that many rows share.
class SnippetLeaves {
public:
    SnippetLeaves(std::shared_ptr<const SnippetOrder> order, std::vector<SnippetOrder::Number> numbers)
        : m_order(std::move(order))
        , m_numbers(std::move(numbers)) {}

    std::size_t size() const { return m_numbers.size(); }

    const std::shared_ptr<Snippet>& at(std::size_t place) const { return m_order->at(m_numbers[place]); }

private:
    std::shared_ptr<const SnippetOrder> m_order;
    std::vector<SnippetOrder::Number> m_numbers;
};

// A row and the rows below it. Two rows are equal when their types are, whatever their children.
class ListItem {
public:
    using Children = std::vector<std::shared_ptr<ListItem>>;

    // Absent children make a leaf; an empty array makes a group without members.
    explicit ListItem(ListItemType type, std::optional<Children> children = std::nullopt)
        : m_type(std::move(type))
        , m_children(std::move(children)) {}

    // A group whose leaves are made when its children are asked for.
    ListItem(ListItemType type, SnippetLeaves leaves)
        : m_type(std::move(type))
        , m_leaves(std::move(leaves)) {}

    const ListItemType& type() const { return m_type; }

    const std::optional<Children>& children() const;

    // The leaves of a group that was made with some, without making rows of them.
    const std::optional<SnippetLeaves>& leaves() const { return m_leaves; }

    bool operator==(const ListItem& other) const { return m_type == other.m_type; }

private:
    ListItemType m_type;
    std::optional<SnippetLeaves> m_leaves;
    mutable std::optional<Children> m_children;
};

// Rows that are equal have equal hashes; the kind of row counts in.
size_t qHash(const ListItemType& type, size_t seed = 0);

inline size_t qHash(const ListItem& item, size_t seed = 0) {
    return qHash(item.type(), seed);
}

} // namespace quillet
