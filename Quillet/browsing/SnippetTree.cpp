#include "Quillet/browsing/SnippetTree.h"

#include "Quillet/browsing/TagColors.h"
#include "platform/screens/list/ListView.h"

#include <QtCore/QLocale>
#include <QtCore/QMimeData>

namespace quillet {

using platform::Asset;
using platform::ListView;

namespace {

// An index tells by its id what it is: a top group, a member of one, or a leaf below a member.
constexpr quintptr groupId = 0;
constexpr quintptr firstMemberId = 1;
constexpr quintptr firstLeafId = firstMemberId + SnippetTree::GroupCount;

quintptr memberId(int group) {
    return firstMemberId + static_cast<quintptr>(group);
}

quintptr leafId(int group, int member) {
    return firstLeafId + static_cast<quintptr>(member) * SnippetTree::GroupCount +
           static_cast<quintptr>(group);
}

// Of a member or a leaf.
int groupOf(const QModelIndex& index) {
    return static_cast<int>((index.internalId() - firstMemberId) % SnippetTree::GroupCount);
}

// Of a leaf.
int memberRowOf(const QModelIndex& leaf) {
    return static_cast<int>((leaf.internalId() - firstLeafId) / SnippetTree::GroupCount);
}

struct GroupLook {
    QString title;
    QString symbol;
    QString buttonSymbol;
    QString buttonName;
};

const GroupLook& lookOf(int group) {
    static const std::array<GroupLook, SnippetTree::GroupCount> looks{{
        {QStringLiteral("Folders"), QStringLiteral("folder.fill"), QStringLiteral("folder.badge.plus"),
         QStringLiteral("Edit Folders")},
        {QStringLiteral("Tags"), QStringLiteral("tag.fill"), QStringLiteral("tag.circle"),
         QStringLiteral("Edit Tags")},
        {QStringLiteral("Languages"), QStringLiteral("doc.fill"), {}, {}},
    }};
    return looks[static_cast<std::size_t>(group)];
}

// Of a member. A tag's colour is looked up when its row is drawn: one that has none stops the program there.
Asset tintOf(const ListItem& item) {
    if (const auto* tag = std::get_if<std::shared_ptr<Tag>>(&item.type()))
        return tagColor((*tag)->colorIndex());
    return std::holds_alternative<LanguageHeader>(item.type()) ? Asset::TextSecondary : Asset::Accent;
}

// Of what lies below the member.
Asset leafTintOf(const ListItem& item) {
    return std::holds_alternative<std::shared_ptr<Tag>>(item.type()) ? tintOf(item) : Asset::TextSecondary;
}

qsizetype leafCount(const ListItem& item) {
    return item.leaves() ? static_cast<qsizetype>(item.leaves()->size()) : 0;
}

} // namespace

SnippetTree::SnippetTree(SnippetListModel& model, QObject* parent)
    : QAbstractItemModel(parent)
    , m_model(&model) {
    rebuild();
    // Languages are the last group that a rebuild of the list model publishes.
    m_subscriptions.push_back(model.languageItems.observeChanges([this](const auto&) { rebuild(); }));
}

void SnippetTree::rebuild() {
    beginResetModel();
    m_members = {membersOf(m_model->folderItems.value()), membersOf(m_model->tagItems.value()),
                 membersOf(m_model->languageItems.value())};
    endResetModel();
}

std::vector<SnippetTree::Member> SnippetTree::membersOf(const SnippetListModel::Items& items) {
    std::vector<Member> members;
    members.reserve(items.size());
    for (const auto& item : items)
        members.push_back(memberOf(item));
    return members;
}

SnippetTree::Member SnippetTree::memberOf(const std::shared_ptr<ListItem>& item) {
    Member member;
    member.item = item;
    if (const auto* folder = std::get_if<std::shared_ptr<Folder>>(&item->type())) {
        member.title = (*folder)->title();
        member.symbol = QStringLiteral("folder.fill");
        member.key = (*folder)->id().toString();
    } else if (const auto* tag = std::get_if<std::shared_ptr<Tag>>(&item->type())) {
        member.title = (*tag)->title();
        member.symbol = QStringLiteral("tag.fill");
        member.key = (*tag)->id().toString();
    } else if (const auto* language = std::get_if<LanguageHeader>(&item->type())) {
        member.title = language->language;
        // Its group's symbol, so that the titles of all members stand in line.
        member.symbol = QStringLiteral("doc.fill");
        member.key = QStringLiteral("language ") + language->language;
    }
    return member;
}

SnippetTree::Level SnippetTree::levelOf(const QModelIndex& index) const {
    if (index.internalId() == groupId) return Level::Group;
    return index.internalId() < firstLeafId ? Level::Member : Level::Leaf;
}

const SnippetTree::Member& SnippetTree::memberAt(const QModelIndex& index) const {
    const auto& members = m_members[static_cast<std::size_t>(groupOf(index))];
    return members[static_cast<std::size_t>(levelOf(index) == Level::Leaf ? memberRowOf(index)
                                                                          : index.row())];
}

std::shared_ptr<ListItem> SnippetTree::itemAt(const QModelIndex& index) const {
    return index.isValid() && levelOf(index) == Level::Member ? memberAt(index).item : nullptr;
}

std::shared_ptr<Snippet> SnippetTree::snippetAt(const QModelIndex& index) const {
    if (!index.isValid() || levelOf(index) != Level::Leaf) return nullptr;
    return memberAt(index).item->leaves()->at(static_cast<std::size_t>(index.row()));
}

QString SnippetTree::keyOf(const QModelIndex& index) const {
    switch (levelOf(index)) {
    case Level::Group:
        return lookOf(index.row()).title;
    case Level::Member:
        return memberAt(index).key;
    case Level::Leaf:
        break;
    }
    return memberAt(index).key + snippetAt(index)->objectID().toString();
}

QModelIndex SnippetTree::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    if (!parent.isValid()) return createIndex(row, column, groupId);
    return createIndex(row, column,
                       levelOf(parent) == Level::Group ? memberId(parent.row())
                                                       : leafId(groupOf(parent), parent.row()));
}

QModelIndex SnippetTree::parent(const QModelIndex& child) const {
    if (!child.isValid() || levelOf(child) == Level::Group) return {};
    return levelOf(child) == Level::Member ? createIndex(groupOf(child), 0, groupId)
                                           : createIndex(memberRowOf(child), 0, memberId(groupOf(child)));
}

bool SnippetTree::hasChildren(const QModelIndex& parent) const {
    return rowCount(parent) > 0;
}

int SnippetTree::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid()) return GroupCount;
    switch (levelOf(parent)) {
    case Level::Group:
        return static_cast<int>(m_members[static_cast<std::size_t>(parent.row())].size());
    case Level::Member:
        return static_cast<int>(leafCount(*memberAt(parent).item));
    case Level::Leaf:
        break;
    }
    return 0;
}

int SnippetTree::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

QVariant SnippetTree::data(const QModelIndex& index, int role) const {
    if (role == ListView::KeyRole) return keyOf(index);
    switch (levelOf(index)) {
    case Level::Group:
        return groupData(index.row(), role);
    case Level::Member:
        return memberData(memberAt(index), role);
    case Level::Leaf:
        break;
    }
    return leafData(index, role);
}

QVariant SnippetTree::groupData(int row, int role) const {
    const GroupLook& look = lookOf(row);
    switch (role) {
    case Qt::DisplayRole:
        return look.title;
    case ListView::StyleRole:
        return static_cast<int>(ListView::RowStyle::Header);
    case ListView::SymbolRole:
        return look.symbol;
    case ListView::GroupRole:
        return true;
    case ListView::ButtonSymbolRole:
        return look.buttonSymbol;
    case ListView::ButtonNameRole:
        return look.buttonName;
    default:
        return {};
    }
}

QVariant SnippetTree::memberData(const Member& member, int role) {
    switch (role) {
    case Qt::DisplayRole:
        return member.title;
    case Qt::AccessibleTextRole: // snippets without a language make a group without a name
        return member.title.isEmpty() ? QStringLiteral("No Language") : member.title;
    case ListView::SymbolRole:
        return member.symbol;
    case ListView::TintRole:
        return static_cast<int>(tintOf(*member.item));
    case ListView::DetailRole:
        return QLocale().toString(leafCount(*member.item));
    case ListView::GroupRole:
        return true;
    default:
        return {};
    }
}

QVariant SnippetTree::leafData(const QModelIndex& index, int role) const {
    switch (role) {
    case Qt::DisplayRole:
        return snippetAt(index)->title();
    case ListView::SymbolRole:
        return QStringLiteral("doc.text.fill");
    case ListView::TintRole:
        return static_cast<int>(leafTintOf(*memberAt(index).item));
    case ListView::GroupRole:
        return false;
    default:
        return {};
    }
}

Qt::ItemFlags SnippetTree::flags(const QModelIndex& index) const {
    const auto base = QAbstractItemModel::flags(index);
    return index.isValid() && levelOf(index) == Level::Leaf
               ? base | Qt::ItemNeverHasChildren | Qt::ItemIsDragEnabled
               : base;
}

QMimeData* SnippetTree::mimeData(const QModelIndexList& indexes) const {
    const auto snippet = indexes.isEmpty() ? nullptr : snippetAt(indexes.front());
    const auto code = snippet ? snippet->readCode() : platform::StoreResult<QString>();
    if (!snippet || !code) return nullptr;
    auto data = std::make_unique<QMimeData>();
    data->setText(*code);
    return data.release(); // the caller's, as the base says
}

QStringList SnippetTree::mimeTypes() const {
    return {QStringLiteral("text/plain")};
}

Qt::DropActions SnippetTree::supportedDragActions() const {
    return Qt::CopyAction;
}

} // namespace quillet
