#pragma once

#include "Halcyonix/ModalViewController.h"
#include "Quillet/core/NavigationDelegates.h"
#include "Quillet/screens/details/ListWithSelectionViewController.h"
#include "Quillet/screens/details/SearchSelectViewController.h"
#include "platform/screens/controllers/SplitViewController.h"

namespace quillet {

class HomeListViewController;
class SnippetViewController;
class WindowMenu;

// The window's root: the list beside the editor when there is room, one of the two when there is not. Finds
// the two in its columns and is their delegate, and that of the pickers that it opens. Main thread.
class SnippetRootViewController : public platform::SplitViewController,
                                  public SnippetSelectionDelegate,
                                  public SnippetCreationDelegate,
                                  public SnippetEditDelegate,
                                  public ListWithSelectionViewControllerDelegate,
                                  public SearchSelectDelegate,
                                  public halcyonix::ModalViewControllerDelegate {
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

    // Of the language list and of the theme picker.
    void didSelectOption(const QString& language) override;
    void didSelectTheme(const QString& theme) override;

    void didPressButton(halcyonix::ModalViewController& modal) override;

    // The editor's save, in place, and with it all that is pending.
    void save();
    void didTapEdit();
    void presentNewModally();
    void startTyping();
    void presentSettingsModally();
    void presentThemePicker();
    void presentLanguagePicker();

protected:
    void viewDidLoad() override;
    void viewDidAppear(platform::Animated animated) override;
    bool collapsesSecondaryOntoPrimary() override;
    // Saves; a window whose last changes could not be saved closes only after a question.
    void closeEvent(QCloseEvent* event) override;

private:
    void adopt(platform::ViewController& controller);
    void addMenu();
    void nameWindow(const QString& name);
    void askBeforeLoss(const QString& reason);

    HomeListViewController* m_homeListViewController = nullptr; // found in the tree
    SnippetViewController* m_snippetViewController = nullptr;
    WindowMenu* m_menu = nullptr;
    QPointer<platform::ViewController> m_question;
    bool m_acceptsLoss = false;
};

} // namespace quillet
