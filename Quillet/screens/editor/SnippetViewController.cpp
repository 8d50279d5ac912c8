#include "Quillet/screens/editor/SnippetViewController.h"

#include "Quillet/browsing/SelectionNavigationController.h"
#include "Quillet/browsing/TagSelectionView.h"
#include "Quillet/controls/SnippetNavigationController.h"
#include "Quillet/core/CoreDataStack.h"
#include "Quillet/core/KeyStore.h"
#include "Quillet/core/Segment.h"
#include "Quillet/core/SnippetService.h"
#include "Quillet/screens/details/Languages.h"
#include "Quillet/screens/details/ListWithSelectionViewController.h"
#include "Quillet/screens/details/SnippetDetailsViewController.h"
#include "platform/foundation/DateFormats.h"
#include "platform/screens/appearance/Symbol.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScroller>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace quillet {

namespace {

using platform::Asset;
using namespace std::chrono_literals;

const QString emptyText =
    QStringLiteral("Enter text here to start creating a snippet, or select one from the list.");
const QString unreadableText =
    QStringLiteral("The text of this snippet cannot be read: %1. Select it again to try again.");
const QString placeholder = QStringLiteral("// Tap to add code");

constexpr auto autoSaveInterval = 20s;
constexpr qreal codePointSize = 14.0 * 72 / 96; // 14 points of the screen, of which there are 96 to the inch

// The value is what is read on the button; the name says of what.
void showValue(QToolButton* chip, const QString& value) {
    chip->setText(value);
    chip->setAccessibleDescription(value);
}

QToolButton* chip(const QString& symbol, const QString& name, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setIcon(platform::symbolIcon(symbol, Asset::Accent));
    button->setIconSize({16, 16});
    button->setMinimumSize(44, 44);
    button->setAutoRaise(true);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    return button;
}

} // namespace

SnippetViewController::SnippetViewController(QWidget* parent)
    : ViewController(parent)
    , m_notesLabel(new QLabel(this))
    , m_languageButton(chip(QStringLiteral("doc.text.fill"), QStringLiteral("Language"), this))
    , m_themeButton(chip(QStringLiteral("paintpalette.fill"), QStringLiteral("Theme"), this))
    , m_textView(new platform::TextView(this))
    , m_textStorage(new CodeAttributedString(*m_textView))
    , m_timer(platform::Timer::Kind::Repeating, autoSaveInterval, [this] { autoSave(); }) {
    m_textStorage->setParent(this);
    m_textView->setFrameShape(QFrame::NoFrame);
    m_textView->setAccessibleName(QStringLiteral("Code"));
    m_textView->document()->setDocumentMargin(16);
    m_textView->setCursorWidth(2);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(codePointSize);
    m_textStorage->setCodeFont(font);
    QScroller::grabGesture(m_textView->viewport(), QScroller::TouchGesture);

    addBarButtons();
    layOutViews();
    connect(m_languageButton, &QToolButton::clicked, this, &SnippetViewController::presentLanguages);
    connect(m_themeButton, &QToolButton::clicked, this, &SnippetViewController::presentThemes);

    m_changes = CoreDataStack::shared().viewContext().onChange(
        [this](const platform::ContextChanges& changes) { takeChanges(changes); });
    setTheme(KeyStore::shared().codeTheme());
    m_timer.start();
    setSnippet(nullptr);
}

void SnippetViewController::addBarButtons() {
    using Look = platform::BarButtonItem::Look;
    auto save = std::make_unique<platform::BarButtonItem>(
        Look{QStringLiteral("square.arrow.down"), QStringLiteral("Save")},
        [this] { saveContents(Silent::No); });
    save->setShortcut(QKeySequence::Save);
    navigationItem().addTrailing(std::move(save));
    m_editButton = &navigationItem().addTrailing(std::make_unique<platform::BarButtonItem>(
        Look{QStringLiteral("rectangle.and.pencil.and.ellipsis"), QStringLiteral("Edit Details")},
        [this] { presentDetails(); }));
    m_tagButton = &navigationItem().addTrailing(std::make_unique<platform::BarButtonItem>(
        Look{QStringLiteral("tag.fill"), QStringLiteral("Tags")}, [this] { presentTags(); }));
}

void SnippetViewController::layOutViews() {
    m_notesLabel->setTextFormat(Qt::PlainText);
    m_notesLabel->setForegroundRole(QPalette::PlaceholderText);
    m_notesLabel->setWordWrap(true);
    auto* chips = new QHBoxLayout;
    chips->setContentsMargins(8, 0, 12, 6);
    chips->addWidget(m_languageButton);
    chips->addWidget(m_themeButton);
    chips->addStretch();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(m_notesLabel);
    column->addLayout(chips);
    column->addWidget(m_textView, 1);
    m_notesLabel->setContentsMargins(16, 0, 16, 0);
}

void SnippetViewController::setSnippet(std::shared_ptr<Snippet> snippet) {
    m_snippet = std::move(snippet);
    const bool present = m_snippet != nullptr;
    m_editButton->setEnabled(present);
    m_tagButton->setEnabled(present);
    m_languageButton->setVisible(present);
    showDescription();
    const auto code = present ? m_snippet->readCode() : QString();
    // What cannot be read now must not be written over later.
    m_textView->setEnabled(code.has_value());
    m_textView->setPlaceholderText(!code     ? unreadableText.arg(code.error().message)
                                   : present ? placeholder
                                             : emptyText);
    m_knownCode = code.value_or(QString());
    m_textView->setText(m_knownCode);
    if (present) m_selectedLanguage = m_snippet->language().value_or(QString());
    showValue(m_languageButton, m_selectedLanguage);
    m_textStorage->setLanguage(m_selectedLanguage.isEmpty() ? std::nullopt
                                                            : std::optional(m_selectedLanguage));
}

void SnippetViewController::showDescription() {
    setTitle(m_snippet ? m_snippet->title() : QString());
    m_notesLabel->setText(m_snippet ? m_snippet->notes() : QString());
    m_notesLabel->setVisible(!m_notesLabel->text().isEmpty());
}

void SnippetViewController::takeChanges(const platform::ContextChanges& changes) {
    if (std::ranges::find(changes.updated, m_snippet) == changes.updated.end()) return;
    showDescription();
    if (const auto language = m_snippet->language(); language && *language != m_selectedLanguage) {
        m_selectedLanguage = *language;
        showValue(m_languageButton, m_selectedLanguage);
        m_textStorage->setLanguage(m_selectedLanguage);
    }
    // What could not be read at first stays closed until the snippet is selected again.
    if (const auto code = m_snippet->readCode(); code && m_textView->isEnabled()) takeText(*code);
}

// Another device, or another window, has written the text on screen.
void SnippetViewController::takeText(const QString& code) {
    if (code == m_knownCode) return;
    if (!m_textView->document()->isModified()) {
        m_textView->updateText(code);
        m_textView->document()->setModified(false);
    } else if (const QString typed = m_textView->text(); typed != code) {
        m_textView->updateText(Segment::mergeTyped(*m_snippet, m_knownCode, code, typed));
    }
    m_knownCode = code;
}

void SnippetViewController::saveContents(Silent silent) {
    if (!m_snippet) createFromText();
    if (!m_snippet) return;
    // A text that nobody touched here may have a newer one in the store.
    if (m_textView->document()->isModified()) writeText();
    CoreDataStack::shared().save(SaveReason::AddedSnippet);
    if (silent == Silent::Yes) return;
    if (delegate) delegate->didEdit(m_snippet);
}

void SnippetViewController::writeText() {
    if (m_snippet->context()) {
        // Of what it cannot read now it does not know whether the text on screen is made from it.
        const auto stored = m_snippet->readCode();
        if (!stored) return;
        takeText(*stored);
    }
    m_knownCode = m_textView->text();
    m_snippet->setCode(m_knownCode);
    m_textView->document()->setModified(false);
    // Deleted elsewhere meanwhile, it comes back with what was typed into it.
    if (!m_snippet->context()) SnippetService().save(m_snippet);
}

void SnippetViewController::createFromText() {
    if (m_textView->document()->isEmpty()) return;
    m_snippet = Snippet::create(QStringLiteral("New Snippet - ") +
                                    platform::shortDateTime(QDateTime::currentDateTime()),
                                m_notesLabel->text(), m_textView->text(), m_selectedLanguage);
    m_knownCode = m_textView->text();
    m_editButton->setEnabled(true);
    m_tagButton->setEnabled(true);
    m_languageButton->setVisible(true);
    setTitle(m_snippet->title());
}

void SnippetViewController::autoSave() {
    // A save that failed has left its changes pending.
    const bool isUnsaved =
        m_textView->document()->isModified() || CoreDataStack::shared().viewContext().hasChanges();
    if (m_snippet && isUnsaved) saveContents(Silent::No);
}

void SnippetViewController::didEdit(const std::shared_ptr<Snippet>& snippet) {
    setSnippet(snippet);
    if (delegate) delegate->didEdit(snippet);
}

void SnippetViewController::presentDetails() {
    saveContents(Silent::Yes); // the form may replace the code, and it reloads this screen
    auto details = std::make_unique<SnippetDetailsViewController>(m_snippet);
    details->editDelegate = this;
    present(std::make_unique<SnippetNavigationController>(std::move(details)));
}

void SnippetViewController::presentTags() {
    if (!m_snippet) return;
    SelectionNavigationController::presentSheet(*this,
                                                std::make_unique<TagSelectionView>(m_snippet, tagColors),
                                                [] { CoreDataStack::shared().save(SaveReason::AddedTag); });
}

void SnippetViewController::presentLanguages() {
    auto list = std::make_unique<ListWithSelectionViewController>(QStringLiteral("Language"), languages(),
                                                                  m_selectedLanguage);
    list->onSelect = [this](const QString& language) { selectLanguage(language); };
    present(std::make_unique<SnippetNavigationController>(std::move(list)));
}

void SnippetViewController::selectLanguage(const QString& language) {
    m_selectedLanguage = language;
    showValue(m_languageButton, language);
    m_textStorage->setLanguage(language);
    if (!m_snippet) return;
    m_snippet->setLanguage(language);
    SnippetService().save(m_snippet);
    if (delegate) delegate->didEdit(m_snippet);
}

void SnippetViewController::presentThemes() {
    auto list = std::make_unique<ListWithSelectionViewController>(
        QStringLiteral("Theme"), platform::Highlightr::availableThemes(), m_currentTheme);
    list->onSelect = [this](const QString& theme) {
        setTheme(theme);
        KeyStore::shared().setCodeTheme(theme);
    };
    present(std::make_unique<SnippetNavigationController>(std::move(list)));
}

void SnippetViewController::setTheme(const QString& theme) {
    m_currentTheme = theme;
    showValue(m_themeButton, theme);
    m_textStorage->highlightr()->setTheme(theme);
    m_textStorage->themeChanged();
}

} // namespace quillet
