#include "Quillet/browsing/SnippetListModel.h"

#include "Quillet/core/UserSettings.h"
#include "platform/foundation/CodePointOrder.h"

#include <algorithm>
#include <map>

namespace quillet {

namespace {

// A snippet with what the order asks of it, read once: a sort compares each a dozen times.
struct Sortable {
    explicit Sortable(std::shared_ptr<Snippet> member)
        : title(platform::codePointOrderKey(member->title()))
        , lastUpdate(member->lastUpdate())
        , snippet(std::move(member)) {}

    QString title;
    std::optional<QDateTime> lastUpdate;
    std::shared_ptr<Snippet> snippet;
};

// The order is fixed for a whole sort: a setting or a clock that moved between two comparisons would leave no
// order at all, and the sort outside of its array.
void sortByTheSetting(std::vector<Sortable>& members) {
    if (UserSettings::shared().sortIndex.value() != 0) {
        std::ranges::stable_sort(members, {}, &Sortable::title);
        return;
    }
    const auto now = QDateTime::currentDateTimeUtc();
    std::ranges::stable_sort(members, std::ranges::greater(),
                             [&now](const Sortable& member) { return member.lastUpdate.value_or(now); });
}

ListItem::Children leavesOf(std::vector<Sortable> members) {
    sortByTheSetting(members);
    ListItem::Children leaves;
    leaves.reserve(members.size());
    for (auto& member : members)
        leaves.push_back(std::make_shared<ListItem>(std::move(member.snippet)));
    return leaves;
}

template <typename Group>
SnippetListModel::Items groupItems(const std::vector<std::shared_ptr<Group>>& groups) {
    SnippetListModel::Items items;
    for (const auto& group : groups) {
        std::vector<Sortable> members;
        members.reserve(group->toMany(Group::Snippets).size());
        for (auto* object : group->toMany(Group::Snippets))
            members.emplace_back(std::static_pointer_cast<Snippet>(object->shared_from_this()));
        items.push_back(std::make_shared<ListItem>(group, leavesOf(std::move(members))));
    }
    return items;
}

SnippetListModel::Items languageGroups(const SnippetListModel::Snippets& snippets) {
    struct Group {
        QString language;
        std::vector<Sortable> members;
    };

    std::map<QString, Group> groups; // by order key
    for (const auto& snippet : snippets) {
        const auto language = snippet->language();
        auto& group = groups[platform::codePointOrderKey(language.value_or(QString()))];
        group.language = language.value_or(QString());
        // A snippet without a language shows only as the empty group that it makes appear.
        if (language) group.members.emplace_back(snippet);
    }
    SnippetListModel::Items items;
    for (auto& [key, group] : groups) {
        auto leaves = leavesOf(std::move(group.members));
        LanguageHeader header{group.language, {}};
        header.snippets.reserve(leaves.size());
        for (const auto& leaf : leaves)
            header.snippets.push_back(std::get<std::shared_ptr<Snippet>>(leaf->type()));
        items.push_back(std::make_shared<ListItem>(std::move(header), std::move(leaves)));
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
    auto languages = languageGroups(snippets);
    auto folderGroups = groupItems(folders);
    auto tagGroups = groupItems(tags);
    tagItems.set(std::move(tagGroups));
    folderItems.set(std::move(folderGroups));
    languageItems.set(std::move(languages));
}

} // namespace quillet
