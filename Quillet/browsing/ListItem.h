#pragma once

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

// A row and the rows below it. Two rows are equal when their types are, whatever their children.
class ListItem {
public:
    using Children = std::vector<std::shared_ptr<ListItem>>;

    // Absent children make a leaf; an empty array makes a group without members.
    explicit ListItem(ListItemType type, std::optional<Children> children = std::nullopt)
        : m_type(std::move(type))
        , m_children(std::move(children)) {}

    const ListItemType& type() const { return m_type; }

    const std::optional<Children>& children() const { return m_children; }

    bool operator==(const ListItem& other) const { return m_type == other.m_type; }

private:
    ListItemType m_type;
    std::optional<Children> m_children;
};

// Rows that are equal have equal hashes; the kind of row counts in.
size_t qHash(const ListItemType& type, size_t seed = 0);

inline size_t qHash(const ListItem& item, size_t seed = 0) {
    return qHash(item.type(), seed);
}

} // namespace quillet
