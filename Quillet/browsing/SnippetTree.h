#pragma once

#include "Quillet/browsing/SnippetListModel.h"
#include "platform/screens/appearance/Palette.h"

#include <QtCore/QAbstractItemModel>

#include <array>

namespace quillet {

// The three top groups of the home list with their members and leaves, with all that a platform::ListView
// asks. Holds one published state of the list model; publishing a new one resets it. A leaf is nothing of its
// own here: a hundred thousand of them cost nothing until they are looked at. Main thread.
class SnippetTree : public QAbstractItemModel {
    Q_OBJECT

public:
    enum class Level { Group, Member, Leaf };

    // The top groups, by their rows.
    enum GroupRow { FolderGroup, TagGroup, LanguageGroup, GroupCount };

    // Observes `model`, which outlives this.
    explicit SnippetTree(SnippetListModel& model, QObject* parent = nullptr);

    Level levelOf(const QModelIndex& index) const;

    // What a member stands for; null for a top group and for a leaf.
    std::shared_ptr<ListItem> itemAt(const QModelIndex& index) const;

    // Null for what is no leaf.
    std::shared_ptr<Snippet> snippetAt(const QModelIndex& index) const;

    // Names the row over rebuilds: equal for a group, a tag, a folder or a language that is the same, and for
    // a snippet below the same of these.
    QString keyOf(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // The code of a leaf, as text; null where it cannot be read.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;
    QStringList mimeTypes() const override;
    Qt::DropActions supportedDragActions() const override;

private:
    struct Member {
        QString title;
        QString symbol;
        QString key;
        std::shared_ptr<ListItem> item;
    };

    static Member memberOf(const std::shared_ptr<ListItem>& item);
    static std::vector<Member> membersOf(const SnippetListModel::Items& items);

    // Of a member or of what is above a leaf.
    const Member& memberAt(const QModelIndex& index) const;
    QVariant groupData(int row, int role) const;
    static QVariant memberData(const Member& member, int role);
    QVariant leafData(const QModelIndex& index, int role) const;
    void rebuild();

    SnippetListModel* m_model;
    std::array<std::vector<Member>, GroupCount> m_members;
    std::vector<platform::Subscription> m_subscriptions;
};

} // namespace quillet
