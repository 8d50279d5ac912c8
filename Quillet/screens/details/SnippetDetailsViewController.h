#pragma once

#include "Quillet/core/Language.h"
#include "Quillet/core/NavigationDelegates.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/screens/details/ListWithSelectionViewController.h"
#include "platform/screens/controllers/ViewController.h"

#include <memory>
#include <optional>

namespace platform {
class DisclosureRow;
class SwitchRow;
} // namespace platform

namespace quillet {

class ToolbarTextField;

// The form that names a snippet, new or existing. It is dismissed by its button Cancel and after an edit;
// after a creation that is its delegate's to do. Main thread.
class SnippetDetailsViewController : public platform::ViewController,
                                     public ListWithSelectionViewControllerDelegate {
    Q_OBJECT

public:
    // Without a snippet the form makes a new one.
    explicit SnippetDetailsViewController(std::shared_ptr<Snippet> snippet = nullptr,
                                          QWidget* parent = nullptr);

    SnippetCreationDelegate* delegate = nullptr; // not owned
    SnippetEditDelegate* editDelegate = nullptr; // not owned
    // What a new snippet is written in, instead of the language of the last one. To be set before the form
    // comes up.
    std::optional<Language> startLanguage;

    void didSelectOption(const QString& language) override;

protected:
    void viewDidLoad() override;
    void viewDidAppear(platform::Animated animated) override;

private:
    void addBarButtons();
    void addForm();
    void fillIn();

    void didClose() { dismiss(); }

    void pickLanguage();
    void didTapSave();
    std::optional<QString> importedCode() const;
    void create();
    void edit();
    // Writes what was changed in the form; what another device has changed meanwhile stays.
    void writeChanges();

    std::shared_ptr<Snippet> m_snippet;
    platform::BarButtonItem* m_saveButton = nullptr; // the navigation item owns it
    ToolbarTextField* m_nameField;
    platform::DisclosureRow* m_languageDetailLabel;
    ToolbarTextField* m_notesField;
    platform::SwitchRow* m_copySwitch;
    QString m_language; // empty if none is chosen
    // As the form showed the snippet at first.
    QString m_openedTitle;
    QString m_openedNotes;
    QString m_openedLanguage;
};

} // namespace quillet
