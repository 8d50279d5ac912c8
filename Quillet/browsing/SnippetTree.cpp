#include "Quillet/browsing/SnippetTree.h"

#include "Quillet/browsing/TagColors.h"

namespace quillet {

SnippetTree::SnippetTree(SnippetListModel& model, QObject* parent)
    : QAbstractItemModel(parent)
    , m_model(&model)
    , m_root(std::make_unique<Node>()) {
    rebuild();
    // Languages are the last group that a rebuild of the list model publishes.
    m_subscriptions.push_back(model.languageItems.observeChanges([this](const auto&) { rebuild(); }));
}

void SnippetTree::rebuild() {
    beginResetModel();
    m_root = std::make_unique<Node>();
    addChild(*m_root, groupNode(QStringLiteral("Folders"), QStringLiteral("folder.fill"),
                                m_model->folderItems.value()));
    addChild(*m_root,
             groupNode(QStringLiteral("Tags"), QStringLiteral("tag.fill"), m_model->tagItems.value()));
    addChild(*m_root, groupNode(QStringLiteral("Languages"), QStringLiteral("doc.fill"),
                                m_model->languageItems.value()));
    endResetModel();
}

std::unique_ptr<SnippetTree::Node> SnippetTree::groupNode(const QString& title, const QString& symbol,
                                                          const SnippetListModel::Items& items) {
    auto group = std::make_unique<Node>();
    group->title = title;
    group->key = title;
    group->symbol = symbol;
    group->tint = static_cast<int>(platform::Asset::Accent);
    for (const auto& item : items)
        addChild(*group, memberNode(*item));
    return group;
}

std::unique_ptr<SnippetTree::Node> SnippetTree::memberNode(const ListItem& item) {
    auto member = std::make_unique<Node>();
    member->level = Level::Member;
    auto leafTint = static_cast<int>(platform::Asset::TextSecondary);
    if (const auto* folder = std::get_if<std::shared_ptr<Folder>>(&item.type())) {
        member->title = (*folder)->title();
        member->symbol = QStringLiteral("folder.fill");
        member->tint = static_cast<int>(platform::Asset::Accent);
        member->key = (*folder)->id().toString();
    } else if (const auto* tag = std::get_if<std::shared_ptr<Tag>>(&item.type())) {
        member->title = (*tag)->title();
        member->symbol = QStringLiteral("tag.fill");
        member->tint = leafTint = static_cast<int>(tagColor((*tag)->colorIndex()));
        member->key = (*tag)->id().toString();
    } else if (const auto* language = std::get_if<LanguageHeader>(&item.type())) {
        member->title = language->language;
        member->key = QStringLiteral("language ") + language->language;
    }
    const auto& children = item.children();
    if (!children) return member;
    for (const auto& child : *children) {
        auto leaf = std::make_unique<Node>();
        leaf->level = Level::Leaf;
        leaf->snippet = std::get<std::shared_ptr<Snippet>>(child->type());
        leaf->title = leaf->snippet->title();
        leaf->symbol = QStringLiteral("doc.text.fill");
        leaf->tint = leafTint;
        addChild(*member, std::move(leaf));
    }
    return member;
}

void SnippetTree::addChild(Node& parent, std::unique_ptr<Node> child) {
    child->parent = &parent;
    child->row = static_cast<int>(parent.children.size());
    parent.children.push_back(std::move(child));
}

SnippetTree::Node* SnippetTree::nodeAt(const QModelIndex& index) const {
    return index.isValid() ? static_cast<Node*>(index.internalPointer()) : m_root.get();
}

std::shared_ptr<Snippet> SnippetTree::snippetAt(const QModelIndex& index) const {
    return nodeAt(index)->snippet;
}

SnippetTree::Level SnippetTree::levelOf(const QModelIndex& index) const {
    return nodeAt(index)->level;
}

QString SnippetTree::keyOf(const QModelIndex& index) const {
    return nodeAt(index)->key;
}

QModelIndex SnippetTree::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent)) return {};
    return createIndex(row, column, nodeAt(parent)->children[static_cast<std::size_t>(row)].get());
}

QModelIndex SnippetTree::parent(const QModelIndex& child) const {
    Node* up = nodeAt(child)->parent;
    return up && up != m_root.get() ? createIndex(up->row, 0, up) : QModelIndex();
}

int SnippetTree::rowCount(const QModelIndex& parent) const {
    return static_cast<int>(nodeAt(parent)->children.size());
}

int SnippetTree::columnCount(const QModelIndex& /*parent*/) const {
    return 1;
}

QVariant SnippetTree::data(const QModelIndex& index, int role) const {
    const Node& node = *nodeAt(index);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        return node.title;
    case LevelRole:
        return static_cast<int>(node.level);
    case SymbolRole:
        return node.symbol;
    case TintRole:
        return node.tint;
    default:
        return {};
    }
}

Qt::ItemFlags SnippetTree::flags(const QModelIndex& index) const {
    const auto base = QAbstractItemModel::flags(index);
    return levelOf(index) == Level::Leaf ? base | Qt::ItemNeverHasChildren : base;
}

} // namespace quillet
