#pragma once

#include "Quillet/browsing/SnippetList.h"
#include "Quillet/core/NavigationDelegates.h"
#include "platform/screens/controllers/ViewController.h"

namespace quillet {

// The primary column: its title, the add button and the list. Main thread.
class HomeListViewController : public platform::ViewController {
    Q_OBJECT

public:
    explicit HomeListViewController(QWidget* parent = nullptr);

    SnippetSelectionDelegate* delegate = nullptr; // not owned
    std::function<void()> onAdd;

    void select(const std::shared_ptr<Snippet>& snippet) { m_snippetList->select(snippet); }

protected:
    // Warns about a missing account, each time the list comes up.
    void viewWillAppear(platform::Animated animated) override;

private:
    SnippetListModel m_model;
    SnippetList* m_snippetList;
};

} // namespace quillet
