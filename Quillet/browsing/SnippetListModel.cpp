#include "Quillet/browsing/SnippetListModel.h"

#include "platform/foundation/CodePointOrder.h"

#include <map>

namespace quillet {

namespace {

using Numbers = std::vector<SnippetOrder::Number>;

// The members of each group, in no order yet.
template <typename Group>
std::vector<Numbers> membersOf(const std::vector<std::shared_ptr<Group>>& groups, SnippetOrder& order) {
    std::vector<Numbers> members(groups.size());
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const auto& objects = groups[i]->toMany(Group::Snippets);
        members[i].reserve(objects.size());
        for (auto* object : objects)
            members[i].push_back(order.add(static_cast<Snippet&>(*object)));
    }
    return members;
}

template <typename Group>
SnippetListModel::Items groupItems(const std::vector<std::shared_ptr<Group>>& groups,
                                   std::vector<Numbers> members,
                                   const std::shared_ptr<const SnippetOrder>& order) {
    SnippetListModel::Items items;
    items.reserve(groups.size());
    for (std::size_t i = 0; i < groups.size(); ++i) {
        order->sort(members[i]);
        items.push_back(std::make_shared<ListItem>(groups[i], SnippetLeaves(order, std::move(members[i]))));
    }
    return items;
}

struct LanguageGroup {
    QString language;
    Numbers members;
};

// By the order key of their language. Snippets stand in the order that they have in `snippets`, which is that
// of their numbers.
std::map<QString, LanguageGroup> byLanguage(const SnippetListModel::Snippets& snippets) {
    std::map<QString, LanguageGroup> groups;
    QHash<QString, LanguageGroup*> known;
    for (SnippetOrder::Number number = 0; number < snippets.size(); ++number) {
        const QVariant language = snippets[number]->value(Snippet::Language);
        const QString name = language.toString();
        auto*& group = known[name];
        if (!group) {
            group = &groups[platform::codePointOrderKey(name)];
            group->language = name;
        }
        // A snippet without a language shows only as the empty group that it makes appear.
        if (!language.isNull()) group->members.push_back(number);
    }
    return groups;
}

SnippetListModel::Items languageItemsOf(const SnippetListModel::Snippets& snippets,
                                        const std::shared_ptr<const SnippetOrder>& order) {
    SnippetListModel::Items items;
    for (auto& [key, group] : byLanguage(snippets)) {
        order->sort(group.members);
        LanguageHeader header{group.language, {}};
        header.snippets.reserve(group.members.size());
        for (const auto number : group.members)
            header.snippets.push_back(order->at(number));
        items.push_back(
            std::make_shared<ListItem>(std::move(header), SnippetLeaves(order, std::move(group.members))));
    }
    return items;
}

} // namespace

SnippetListModel::SnippetListModel()
    : m_tagRepository(CoreDataStack::shared().viewContext())
    , m_snippetRepository(CoreDataStack::shared().viewContext())
    , m_folderRepository(CoreDataStack::shared().viewContext()) {
    refresh();
    const auto later = [this](auto& results) {
        return results.observeChanges([this](const auto&) { refresh(); });
    };
    m_cancellables.push_back(later(m_tagRepository.results()));
    m_cancellables.push_back(later(m_snippetRepository.results()));
    m_cancellables.push_back(later(m_folderRepository.results()));
}

void SnippetListModel::refresh() {
    m_tags = m_tagRepository.results().value();
    m_snippets = m_snippetRepository.results().value();
    m_folders = m_folderRepository.results().value();
    rebuild(m_snippets, m_folders, m_tags);
}

void SnippetListModel::rebuild(const Snippets& snippets, const Folders& folders, const Tags& tags) {
    const auto order = std::make_shared<SnippetOrder>(snippets);
    auto inFolders = membersOf(folders, *order);
    auto inTags = membersOf(tags, *order);
    order->rank();
    auto languages = languageItemsOf(snippets, order);
    auto folderGroups = groupItems(folders, std::move(inFolders), order);
    auto tagGroups = groupItems(tags, std::move(inTags), order);
    tagItems.set(std::move(tagGroups));
    folderItems.set(std::move(folderGroups));
    languageItems.set(std::move(languages));
}

} // namespace quillet
