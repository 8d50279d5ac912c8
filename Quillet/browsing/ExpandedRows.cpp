#include "Quillet/browsing/ExpandedRows.h"

#include <algorithm>

namespace quillet {

namespace {

const QString& identity(const QString& language) {
    return language;
}

template <typename T>
QUuid identity(const std::shared_ptr<T>& object) {
    return object->id();
}

template <typename Members, typename T>
auto findMember(Members& members, const T& member) {
    return std::ranges::find_if(members,
                                [&member](const auto& other) { return identity(other) == identity(member); });
}

// Calls `use` with the array of the row's kind and the row in it; false where no array is of its kind.
template <typename Rows, typename Use>
bool withMembers(Rows& rows, const ListItemType& row, const Use& use) {
    if (const auto* folder = std::get_if<std::shared_ptr<Folder>>(&row))
        return use(rows.expandedFolders, *folder);
    if (const auto* tag = std::get_if<std::shared_ptr<Tag>>(&row)) return use(rows.expandedTags, *tag);
    if (const auto* language = std::get_if<LanguageHeader>(&row))
        return use(rows.expandedLanguages, language->language);
    return false;
}

} // namespace

bool ExpandedRows::contains(const ListItemType& row) const {
    return withMembers(*this, row, [](const auto& members, const auto& member) {
        return findMember(members, member) != members.end();
    });
}

void ExpandedRows::set(const ListItemType& row, bool isExpanded) {
    withMembers(*this, row, [isExpanded](auto& members, const auto& member) {
        if (isExpanded)
            members.push_back(member);
        else if (const auto found = findMember(members, member); found != members.end())
            members.erase(found);
        return true;
    });
}

} // namespace quillet
