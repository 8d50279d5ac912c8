#pragma once

#include "Quillet/core/NavigationDelegates.h"
#include "Quillet/core/Snippet.h"
#include "Quillet/screens/code/CodeAttributedString.h"
#include "platform/foundation/Timer.h"
#include "platform/screens/controllers/ViewController.h"
#include "platform/screens/text/TextView.h"
#include "platform/store/ManagedObjectContext.h"

#include <optional>

class QLabel;
class QToolButton;

namespace quillet {

// The detail side of the window: one snippet's text, highlighted in the chosen theme. Main thread.
class SnippetViewController : public platform::ViewController, public SnippetEditDelegate {
    Q_OBJECT

public:
    explicit SnippetViewController(QWidget* parent = nullptr);

    // The detail column's own delegate; not owned.
    SnippetEditDelegate* delegate = nullptr;

    std::shared_ptr<Snippet> snippet() const { return m_snippet; }

    // None shows the empty state. Saves nothing of what was there before.
    void setSnippet(std::shared_ptr<Snippet> snippet);

    // Whether a save made in place is followed by a word to the delegate.
    enum class Silent { No, Yes };
    // Writes the text on screen to the snippet and saves. Text without a snippet becomes one.
    void saveContents(Silent silent);

    void didEdit(const std::shared_ptr<Snippet>& snippet) override;
    void setTheme(const QString& theme);

private:
    void addBarButtons();
    void layOutViews();
    void presentDetails();
    void presentTags();
    void presentLanguages();
    void presentThemes();
    void selectLanguage(const QString& language);
    void autoSave();
    void createFromText();
    void showDescription();
    void takeChanges(const platform::ContextChanges& changes);
    void takeText(const QString& code);
    void writeText();

    std::shared_ptr<Snippet> m_snippet;
    QString m_knownCode; // of the snippet, as this screen has seen it
    platform::Subscription m_changes;
    QString m_selectedLanguage = QStringLiteral("swift");
    QString m_currentTheme;
    QLabel* m_notesLabel;
    QToolButton* m_languageButton;
    QToolButton* m_themeButton;
    platform::BarButtonItem* m_editButton = nullptr; // the navigation item owns these
    platform::BarButtonItem* m_tagButton = nullptr;
    platform::TextView* m_textView;
    CodeAttributedString* m_textStorage;
    platform::Timer m_timer; // auto-save
};

} // namespace quillet
