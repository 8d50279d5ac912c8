#pragma once

#include "Quillet/core/NavigationDelegates.h"
#include "Quillet/core/Snippet.h"
#include "platform/screens/controllers/ViewController.h"

#include <memory>
#include <optional>

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;

namespace platform {
class DisclosureRow;
}

namespace quillet {

// The form that names a snippet, new or existing. It is dismissed by its button Cancel and after an edit;
// after a creation that is its delegate's to do. Main thread.
class SnippetDetailsViewController : public platform::ViewController {
    Q_OBJECT

public:
    // Without a snippet the form makes a new one.
    explicit SnippetDetailsViewController(std::shared_ptr<Snippet> snippet = nullptr,
                                          QWidget* parent = nullptr);

    SnippetCreationDelegate* delegate = nullptr; // not owned
    SnippetEditDelegate* editDelegate = nullptr; // not owned

private:
    void pickLanguage();
    void save();
    void showLanguage(const QString& language);
    std::optional<QString> importedCode() const;
    // Writes what was changed in the form; what another device has changed meanwhile stays.
    void writeChanges();

    std::shared_ptr<Snippet> m_snippet;
    QLineEdit* m_nameField;
    platform::DisclosureRow* m_languageRow;
    QPlainTextEdit* m_notesField;
    QCheckBox* m_copySwitch;
    QString m_language;
    // As the form showed the snippet at first.
    QString m_openedTitle;
    QString m_openedNotes;
    QString m_openedLanguage;
};

} // namespace quillet
