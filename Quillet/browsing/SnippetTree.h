#pragma once

#include "Quillet/browsing/SnippetListModel.h"

#include <QtCore/QAbstractItemModel>

namespace quillet {

// The three top groups of the home list with their members and leaves, for a tree view. Holds one published
// state of the list model; publishing a new one resets it. Main thread.
class SnippetTree : public QAbstractItemModel {
    Q_OBJECT

public:
    enum class Level { Group, Member, Leaf };

    enum Role { LevelRole = Qt::UserRole, SymbolRole, TintRole };

    // Observes `model`, which outlives this.
    explicit SnippetTree(SnippetListModel& model, QObject* parent = nullptr);

    std::shared_ptr<Snippet> snippetAt(const QModelIndex& index) const;
    Level levelOf(const QModelIndex& index) const;

    // Names the row over rebuilds: equal for a group, a tag, a folder or a language that is the same.
    QString keyOf(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Node {
        Node* parent = nullptr;
        int row = 0;
        Level level = Level::Group;
        QString title;
        QString symbol;
        int tint = 0; // an Asset
        QString key;
        std::shared_ptr<Snippet> snippet;
        std::vector<std::unique_ptr<Node>> children;
    };

    static std::unique_ptr<Node> groupNode(const QString& title, const QString& symbol,
                                           const SnippetListModel::Items& items);
    static std::unique_ptr<Node> memberNode(const ListItem& item);
    static void addChild(Node& parent, std::unique_ptr<Node> child);
    Node* nodeAt(const QModelIndex& index) const;
    void rebuild();

    SnippetListModel* m_model;
    std::unique_ptr<Node> m_root;
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
