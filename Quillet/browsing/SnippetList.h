#pragma once

#include "Quillet/browsing/ExpandedRows.h"
#include "Quillet/browsing/ItemKind.h"
#include "Quillet/browsing/SnippetTree.h"
#include "platform/screens/list/ListView.h"

namespace platform {
class ViewController;
}

namespace quillet {

// The sidebar list: three collapsible groups, their members, and the snippets below, with what can be done to
// each. A rebuild keeps the open rows, the scroll position and the current row. Main thread.
class SnippetList : public platform::ListView {
    Q_OBJECT

public:
    // Questions are put over `presenter`. It and `viewModel` outlive this.
    SnippetList(SnippetListModel& viewModel, platform::ViewController& presenter, QWidget* parent = nullptr);

    std::function<void(const std::shared_ptr<Snippet>&)> onSelectSnippet;
    std::function<void(const std::shared_ptr<Snippet>&)> onDeleteSnippet;
    std::function<void(const std::shared_ptr<Snippet>&)> onAddSnippetToFolder;
    std::function<void()> onAddFolder;
    std::function<void()> onEditTags;

    SnippetListModel& viewModel() { return *m_viewModel; }

    const std::shared_ptr<Snippet>& selectedSnippet() const { return m_selectedSnippet; }

    // Finds nothing but what is in listItems, so after a creation the selection is cleared.
    void select(const std::shared_ptr<Snippet>& snippet);

private:
    // Whether a top group is open; null for a member.
    bool* shownOf(const QModelIndex& index);
    bool contains(const QModelIndex& index);
    void setExpanded(const QModelIndex& index, bool isExpanded);

    void choose(const QModelIndex& index);
    // A snippet that is listed elsewhere now stays the selected one.
    void followSelection();
    // Its row among those that are open; invalid without one.
    QModelIndex openRowOf(const Snippet& snippet) const;
    void pressHeaderButton(const QModelIndex& index);

    std::optional<platform::Menu> menuOf(const QModelIndex& index);
    platform::Menu snippetMenu(const std::shared_ptr<Snippet>& snippet);
    // What deletes the row, if anything does.
    std::optional<platform::MenuAction> deletionOf(const QModelIndex& index);
    platform::MenuAction deletionOf(const std::shared_ptr<Snippet>& snippet);
    void deleteSnippet(const std::shared_ptr<Snippet>& snippet);
    template <typename Item, typename Service>
    platform::MenuAction confirmedDeletion(const ItemKind& kind, std::shared_ptr<Item> item);

    SnippetListModel* m_viewModel;
    platform::ViewController* m_presenter;
    SnippetTree m_tree;
    ExpandedRows m_expanded;
    std::shared_ptr<Snippet> m_selectedSnippet;
};

} // namespace quillet
