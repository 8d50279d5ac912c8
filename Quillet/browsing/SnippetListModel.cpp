#include "Quillet/browsing/SnippetListModel.h"

#include "Quillet/core/UserSettings.h"

#include <algorithm>
#include <map>
#include <set>

namespace quillet {

namespace {

// Canonically equivalent texts are equal; the order is that of their code points, without locale or case.
std::u32string orderKey(const QString& text) {
    return text.normalized(QString::NormalizationForm_D).toStdU32String();
}

bool isAscii(const QString& text) {
    return std::ranges::all_of(text, [](QChar unit) { return unit.unicode() < 0x80; });
}

bool titlePrecedes(const QString& a, const QString& b) {
    // Nearly every title; needs no normal form, which costs more than all the rest of a sort.
    if (isAscii(a) && isAscii(b)) return a < b;
    return orderKey(a) < orderKey(b);
}

template <typename Member>
ListItem::Children leavesOf(std::vector<Member> snippets) {
    std::ranges::stable_sort(snippets, [](const auto& a, const auto& b) { return comesBefore(*a, *b); });
    ListItem::Children leaves;
    leaves.reserve(snippets.size());
    for (const auto& snippet : snippets)
        leaves.push_back(std::make_shared<ListItem>(snippet));
    return leaves;
}

std::vector<std::shared_ptr<Snippet>> membersOf(const platform::ObjectSet& set) {
    std::vector<std::shared_ptr<Snippet>> members;
    members.reserve(set.size());
    for (auto* object : set)
        members.push_back(std::static_pointer_cast<Snippet>(object->shared_from_this()));
    return members;
}

template <typename Group>
SnippetListModel::Items groupItems(const std::vector<std::shared_ptr<Group>>& groups) {
    SnippetListModel::Items items;
    for (const auto& group : groups)
        items.push_back(
            std::make_shared<ListItem>(group, leavesOf(membersOf(group->toMany(Group::Snippets)))));
    return items;
}

SnippetListModel::Items languageGroups(const SnippetListModel::Snippets& snippets) {
    std::map<std::u32string, std::pair<QString, SnippetListModel::Snippets>> byLanguage;
    for (const auto& snippet : snippets) {
        const auto language = snippet->language();
        auto& [name, members] = byLanguage[orderKey(language.value_or(QString()))];
        name = language.value_or(QString());
        // A snippet without a language shows only as the empty group that it makes appear.
        if (language) members.push_back(snippet);
    }
    SnippetListModel::Items items;
    for (auto& [key, group] : byLanguage) {
        auto leaves = leavesOf(std::move(group.second));
        LanguageHeader header{group.first, {}};
        for (const auto& leaf : leaves)
            header.snippets.push_back(std::get<std::shared_ptr<Snippet>>(leaf->type()));
        items.push_back(std::make_shared<ListItem>(std::move(header), std::move(leaves)));
    }
    return items;
}

} // namespace

bool comesBefore(const Snippet& a, const Snippet& b) {
    if (UserSettings::shared().sortIndex.value() != 0) return titlePrecedes(a.title(), b.title());
    // Two readings of the clock: the second is never earlier, so two snippets without a date are in no order.
    const auto first = a.lastUpdate().value_or(QDateTime::currentDateTimeUtc());
    const auto second = b.lastUpdate().value_or(QDateTime::currentDateTimeUtc());
    return first > second;
}

SnippetListModel::SnippetListModel()
    : m_tagRepository(CoreDataStack::shared().viewContext())
    , m_snippetRepository(CoreDataStack::shared().viewContext())
    , m_folderRepository(CoreDataStack::shared().viewContext()) {
    refresh();
    // Each repository tells its current value at once; the groups above already hold it.
    const auto later = [this](auto& results) {
        return results.observe([this, first = true](const auto&) mutable {
            if (!std::exchange(first, false)) refresh();
        });
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
