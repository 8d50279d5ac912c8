#pragma once

#include "Quillet/browsing/SnippetTree.h"

#include <QtWidgets/QTreeView>

#include <functional>
#include <set>

namespace quillet {

// The sidebar list: three collapsible groups, their members, and the snippets below. A rebuild keeps the open
// rows, the scroll position and the current row. Main thread.
class SnippetList : public QTreeView {
    Q_OBJECT

public:
    explicit SnippetList(SnippetListModel& viewModel, QWidget* parent = nullptr);

    std::function<void(const std::shared_ptr<Snippet>&)> onSelectSnippet;
    std::function<void(const std::shared_ptr<Snippet>&)> onDeleteSnippet;

    // Finds nothing but what is in listItems, so after a creation the selection is cleared.
    void select(const std::shared_ptr<Snippet>& snippet);

protected:
    void drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void rememberState();
    void restoreState();
    void activate(const QModelIndex& index);

    SnippetListModel* m_viewModel;
    SnippetTree m_tree;
    std::set<QString> m_expanded;         // keys of the open rows
    Snippet* m_selectedSnippet = nullptr; // compared, never followed
    QString m_selectedGroup;              // the member under which it was selected
    int m_scroll = 0;
};

} // namespace quillet
