#pragma once

#include "Quillet/core/NavigationDelegates.h"
#include "platform/screens/controllers/SplitViewController.h"

namespace quillet {

class HomeListViewController;
class SnippetViewController;

// The window's root: the list beside the editor when there is room, one of the two when there is not. Finds
// the two in its columns and is their delegate. Main thread.
class SnippetRootViewController : public platform::SplitViewController,
                                  public SnippetSelectionDelegate,
                                  public SnippetCreationDelegate,
                                  public SnippetEditDelegate {
    Q_OBJECT

public:
    using SplitViewController::SplitViewController;

    // With the list in the first column and the editor in the second.
    static std::unique_ptr<SnippetRootViewController> create();

    void didSelect(const std::shared_ptr<Snippet>& snippet) override;
    void didDelete(const std::shared_ptr<Snippet>& snippet) override;
    // What is chosen there waits for the next save.
    void addToFolder(const std::shared_ptr<Snippet>& snippet) override;
    void didCreate(const std::shared_ptr<Snippet>& snippet) override;
    void didEdit(const std::shared_ptr<Snippet>& snippet) override;

    // The editor's save, in place, and with it all that is pending.
    void save();
    void presentNewModally();

protected:
    void viewDidLoad() override;
    void viewDidAppear(platform::Animated animated) override;
    bool collapsesSecondaryOntoPrimary() override;
    // Saves; a window whose last changes could not be saved closes only after a question.
    void closeEvent(QCloseEvent* event) override;

private:
    void adopt(platform::ViewController& controller);
    void nameWindow();
    void askBeforeLoss(const QString& reason);

    HomeListViewController* m_homeListViewController = nullptr; // found in the tree
    SnippetViewController* m_snippetViewController = nullptr;
    QPointer<platform::ViewController> m_question;
    bool m_acceptsLoss = false;
};

} // namespace quillet
