#pragma once

#include "Quillet/browsing/SnippetList.h"
#include "Quillet/core/NavigationDelegates.h"
#include "platform/screens/controllers/ViewController.h"

namespace quillet {

// The primary column: the list, its order, and what is created from it. Main thread.
class HomeListViewController : public platform::ViewController, public SnippetCreationDelegate {
    Q_OBJECT

public:
    explicit HomeListViewController(QWidget* parent = nullptr);

    SnippetSelectionDelegate* delegate = nullptr;        // not owned
    SnippetCreationDelegate* creationDelegate = nullptr; // not owned
    std::function<void()> onAdd;                         // the user wants a new snippet
    std::function<void()> onSettings;                    // the user wants the settings

    // Nothing happens before the view is loaded.
    void select(const std::shared_ptr<Snippet>& snippet);

    // Goes on to creationDelegate.
    void didCreate(const std::shared_ptr<Snippet>& snippet) override;

protected:
    void viewDidLoad() override;
    // Warns about a missing account, each time the list comes up.
    void viewWillAppear(platform::Animated animated) override;

private:
    void addBarButtons();
    void buildSortMenu();
    void setSort(qint64 sortIndex);
    std::unique_ptr<SnippetList> makeSnippetList();

    std::unique_ptr<SnippetListModel> m_model; // these once the view is loaded
    SnippetList* m_snippetList = nullptr;
    platform::BarButtonItem* m_sortButton = nullptr;
    platform::Subscription m_contentUpdates;
};

} // namespace quillet
