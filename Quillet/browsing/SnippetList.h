#pragma once

#include "Quillet/browsing/SnippetTree.h"
#include "platform/screens/list/ListView.h"

#include <functional>
#include <set>

namespace quillet {

// The sidebar list: three collapsible groups, their members, and the snippets below. A rebuild keeps the open
// rows, the scroll position and the current row. Main thread.
class SnippetList : public platform::ListView {
    Q_OBJECT

public:
    explicit SnippetList(SnippetListModel& viewModel, QWidget* parent = nullptr);

    std::function<void(const std::shared_ptr<Snippet>&)> onSelectSnippet;
    std::function<void(const std::shared_ptr<Snippet>&)> onDeleteSnippet;

    // Finds nothing but what is in listItems, so after a creation the selection is cleared.
    void select(const std::shared_ptr<Snippet>& snippet);

private:
    platform::Menu menuFor(const std::shared_ptr<Snippet>& snippet);

    SnippetListModel* m_viewModel;
    SnippetTree m_tree;
    std::set<QString> m_openRows; // their keys
};

} // namespace quillet
