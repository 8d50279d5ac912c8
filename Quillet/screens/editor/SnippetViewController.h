#pragma once

#include "Quillet/controls/FancyButton.h"
#include "Quillet/core/NavigationDelegates.h"
#include "Quillet/screens/code/CodeAttributedString.h"
#include "Quillet/screens/details/LanguagePickerViewController.h"
#include "Quillet/screens/editor/BackgroundHighlight.h"
#include "Quillet/screens/editor/EditedText.h"
#include "Quillet/screens/info/SnippetInfoView.h"
#include "platform/foundation/Timer.h"
#include "platform/screens/controllers/ViewController.h"

#include <optional>

namespace platform {
class ActivityIndicator;
class FindBar;
class SymbolButton;
} // namespace platform

namespace quillet {

class QuilletNavigationBar;
class SelfSizingHostingController;

// The detail side of the window: one snippet's text, or that of one of its segments, highlighted in the
// chosen theme. It alone writes the code of snippets and segments.
//
// Without a snippet it shows a hint; with one the text is on screen a moment later, in colours as they come.
// Until then it takes no typing. Main thread.
class SnippetViewController : public platform::ViewController,
                              public SnippetEditDelegate,
                              public FancyButtonDelegate,
                              public LanguagePickerDelegate {
    Q_OBJECT

public:
    explicit SnippetViewController(QWidget* parent = nullptr);
    ~SnippetViewController() override;

    SnippetEditDelegate* delegate = nullptr; // not owned

    // What the buttons ask the window's root for.
    std::function<void()> onPickTheme;
    std::function<void()> onPickLanguage;

    std::shared_ptr<Snippet> snippet() const { return m_snippet; }

    // Loads it. What is typed for the one before is written to it, and not saved. None is for one that was
    // deleted: the hint is shown, and what was typed goes with it.
    void setSnippet(std::shared_ptr<Snippet> snippet);

    // None shows the snippet's own code.
    std::shared_ptr<Segment> selectedSegment() const { return m_selectedSegment; }

    std::optional<QString> selectedLanguage() const { return m_selectedLanguage; }

    // Becomes the language of the snippet, too; no save.
    void setSelectedLanguage(const std::optional<QString>& language);

    // The theme's name, for the editor alone: nothing is stored.
    void setTheme(const QString& theme);

    // Whether a save made in place is followed by a word to the delegate.
    enum class Silent { No, Yes };
    // Writes the text on screen to what it belongs to, and saves. Text without a snippet becomes one.
    void saveContents(Silent silent);

    // The actions of buttons and menus.
    void editTapped();
    void deleteTapped();
    void shareText();
    void shareImage();
    void find();

    platform::TextView& textView() { return *m_textView; }

    // Whether a snippet is loading.
    bool isLoading() const;

    void didEdit(const std::shared_ptr<Snippet>& snippet) override;
    void didTap(FancyButton& button) override;
    void didPickLanguage(const QString& language) override;

protected:
    void viewDidLoad() override;
    void viewWillAppear(platform::Animated animated) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addBarButtons();
    void layOutViews();
    void setUpText();
    void setupFontsThemeAndColors();
    void showBar();
    void offerActions(bool hasSnippet);
    void nameScreen();

    // Loading.
    void showNoSnippet();
    void showHint();
    void load();
    void loadCode(const CodeOwner& owner);
    void arrive(const CodeOwner& owner, const platform::AttributedString& code);
    void showUnreadable(const QString& reason);
    void takeChanges(const platform::ContextChanges& changes);

    // Saving.
    void autoSave();
    bool isShowingHint() const;
    void createOnSave();
    void createOnTyping();
    void adoptNew(std::shared_ptr<Snippet> snippet);
    void tellEdit();

    void beginEditing();
    void textChanged();
    void presentLanguagePicker();
    void refuseDrop(const QString& reason);

    // Sharing.
    QString textToShare() const;
    void showShareFailure();
    void presentShareSheet(std::variant<QString, QImage> content);

    // What the info panel asks for.
    SnippetInfoCallbacks infoCallbacks();
    void refreshInfo();
    void showTags();
    std::shared_ptr<Segment> addSegment();
    void selectSegment(const std::shared_ptr<Segment>& segment);
    void deleteSegment(const std::shared_ptr<Segment>& segment);

    // Absent until a snippet was taken off the screen for the first time, empty after that. Typing into an
    // empty screen creates a snippet where it is there, and saving does where it is absent.
    std::optional<QString> m_screenTitle;

    std::shared_ptr<Snippet> m_snippet;
    std::shared_ptr<Segment> m_selectedSegment;
    std::optional<QString> m_selectedLanguage = QStringLiteral("swift");
    QString m_currentTheme;

    platform::BarButtonItem* m_saveButton = nullptr; // the navigation item owns these
    platform::BarButtonItem* m_editButton = nullptr;
    platform::BarButtonItem* m_findButton = nullptr;
    platform::BarButtonItem* m_moreButton = nullptr;

    QWidget* m_head; // where there is room: the buttons and the bar in one row
    QuilletNavigationBar* m_fakeNavigationBar;
    std::shared_ptr<SnippetInfoViewModel> m_snippetInfoViewModel; // both absent until first needed
    SelfSizingHostingController* m_snippetInfoHostingController = nullptr;
    QWidget* m_snippetInfoContainer;
    FancyButton* m_languageButton;
    platform::SymbolButton* m_pickLanguageButton;
    FancyButton* m_themeButton;
    platform::ActivityIndicator* m_activityIndicator;
    QWidget* m_buttons; // the former four; in the head, or below the panel where there is none
    QWidget* m_textViewContainer;
    platform::FindBar* m_findBar;
    platform::TextView* m_textView;
    CodeAttributedString* m_textStorage;

    EditedText m_text;
    BackgroundHighlight m_highlight;
    platform::Timer m_timer; // auto-save
    platform::Subscription m_changes;
    platform::Subscription m_reloads;
};

} // namespace quillet
