#include "examples/editor/window/EditorPage.h"

#include "Tessarine/syntax/PlainTextLanguageMode.h"
#include "Tessarine/textview/TextView.h"
#include "examples/editor/find/FindSession.h"
#include "examples/editor/window/BracketPairs.h"
#include "examples/editor/window/GoToLineBar.h"
#include "examples/editor/window/Indentation.h"
#include "examples/editor/window/LineEndings.h"
#include "examples/editor/window/NoticeBar.h"
#include "examples/editor/window/OpenDocument.h"
#include "examples/editor/window/TakeChange.h"

#include <QtCore/QPointer>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace tessarine::editor {

namespace {

constexpr std::int64_t pageGuideColumn = 80;
constexpr double gutterPadding = 8; // points
constexpr EdgeInsets textInset{.top = 4, .left = 6, .bottom = 4, .right = 6};

} // namespace

// Passes on what the text view tells.
class EditorPage::Delegate final : public TextViewDelegate {
public:
    explicit Delegate(EditorPage& page)
        : m_page(page) {}

    void textViewDidChange(TextView& /*view*/) override { m_page.textDidChange(); }

    void textViewDidChangeSelection(TextView& /*view*/) override { m_page.selectionDidChange(); }

private:
    EditorPage& m_page;
};

EditorPage::EditorPage(EditorServices& services, const EditorLook& look)
    : m_services(services)
    , m_look(look)
    , m_view(new QtTextView(this))
    , m_notice(new NoticeBar(this))
    , m_findBar(new FindBar(this))
    , m_goToLineBar(new GoToLineBar(this))
    , m_file(services,
             [this] {
                 const TextView& text = textView();
                 return PageContents{text.document().stringView->snapshot(), text.undoManager().state()};
             })
    , m_find(std::make_unique<FindSession>(textView(), *m_findBar, services.mainExecutor))
    , m_delegate(std::make_shared<Delegate>(*this)) {
    makeLayout();
    connectFile();
    connectView();
    TextView& text = textView();
    text.setIndentStrategy(editor::indentStrategy(DetectedIndentStrategy::unknown()));
    text.setCharacterPairs(bracketPairs());
    text.setCharacterPairTrailingComponentDeletionMode(
        CharacterPairTrailingComponentDeletionMode::immediatelyFollowingLeadingComponent);
    text.setEditorDelegate(m_delegate);
    text.setPageGuideColumn(pageGuideColumn);
    text.setGutterLeadingPadding(gutterPadding);
    text.setGutterTrailingPadding(gutterPadding);
    text.setTextContainerInset(textInset);
    applyLook(look);
}

EditorPage::~EditorPage() = default;

void EditorPage::makeLayout() {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_notice);
    column->addWidget(m_view, 1);
    column->addWidget(m_findBar);
    column->addWidget(m_goToLineBar);
    m_view->setFrameShape(QFrame::NoFrame);
    m_view->setAccessibleName(m_file.name());
    setFocusProxy(m_view);
}

void EditorPage::connectFile() {
    connect(&m_file, &PageFile::stateChanged, this, [this] {
        // What is typed before the file is there would be lost.
        const bool isWaiting = m_file.isLoading() && m_file.path().isEmpty();
        textView().setEditable(!isWaiting && !m_file.isMalformed());
        m_view->setAccessibleName(m_file.name());
        Q_EMIT stateChanged();
    });
    connect(&m_file, &PageFile::opened, this, &EditorPage::show);
    connect(&m_file, &PageFile::renamed, this, [this] {
        m_isOfFile = true;
        // What somebody chose stays.
        if (!m_language) setLanguage(languageOf(m_file.path(), textView().document().stringView->snapshot()));
    });
    connect(&m_file, &PageFile::openFailed, this, &EditorPage::fail);
    connect(&m_file, &PageFile::changedOnDisk, this, &EditorPage::changedOnDisk);
    connect(&m_file, &PageFile::removedFromDisk, this, &EditorPage::removedFromDisk);
}

void EditorPage::connectView() {
    connect(m_view, &QtTextView::zoomRequested, this, [this](int steps) {
        ViewOptions options = m_services.settings.viewOptions();
        options.zoom += steps;
        m_services.settings.setViewOptions(options);
    });
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, m_find.get(),
            &FindSession::viewportDidChange);
    connect(m_findBar, &FindBar::closed, m_view, qOverload<>(&QWidget::setFocus));
    connect(m_goToLineBar, &GoToLineBar::placeChosen, this, &EditorPage::goTo);
    connect(m_goToLineBar, &GoToLineBar::closed, this, [this] {
        m_goToLineBar->hide();
        m_view->setFocus();
    });
}

void EditorPage::open(const QString& path) {
    m_file.open(path, m_look.theme);
}

bool EditorPage::isUnused() const {
    return m_file.path().isEmpty() && !m_file.isModified() && !m_file.isLoading() && !textView().canUndo();
}

void EditorPage::show(const OpenedDocument& document) {
    const bool isReadAnew = std::exchange(m_isOfFile, true);
    if (isReadAnew && textView().isEditable())
        takeChange(textView(), document.state->document().stringView->snapshot());
    else
        showRead(document);
    if (document.isMalformed)
        m_notice->show(
            tr("This file is not valid %1. It is shown as far as it can be read, and cannot be edited.")
                .arg(editor::displayName(document.format)),
            {});
    else
        m_notice->hide();
}

void EditorPage::showRead(const OpenedDocument& document) {
    TextView& text = textView();
    const TextRange selection = text.selectedRange().value_or(TextRange());
    m_language = document.language;
    text.setState(*document.state);
    text.setIndentStrategy(editor::indentStrategy(document.state->detectedIndentStrategy()));
    text.setLineEndings(document.state->detectedLineEndings().value_or(text.lineEndings()));
    applyLook(m_look); // the state has the theme of when it was asked for
    text.setSelectedRange(selection);
    m_find->textDidChange();
    if (m_language && !document.isParsed) parseLongText();
}

// The text shows without colours, and can be edited, until this is done.
void EditorPage::parseLongText() {
    textView().setLanguageMode(languageMode(*m_language), [page = QPointer(this)](bool isParsed) {
        if (!page || !isParsed) return;
        const auto detected = page->textView().document().languageMode->detectIndentStrategy();
        page->setIndentStrategy(editor::indentStrategy(detected));
    });
}

// A file that was shown stays on the screen.
void EditorPage::fail(const LoadError& error) {
    if (m_file.path().isEmpty()) {
        Q_EMIT openFailed(error.message);
        return;
    }
    m_notice->show(error.message, {{tr("OK"), [] {}}});
}

void EditorPage::changedOnDisk() {
    if (!m_file.isModified()) {
        m_file.reload(m_look.theme, PageFile::Unsaved::keep);
        return;
    }
    m_notice->show(
        tr("Another program has changed this file, and you have changes of your own."),
        {{tr("Reload and discard mine"), [this] { m_file.reload(m_look.theme, PageFile::Unsaved::discard); }},
         {tr("Keep mine"), [this] { m_file.keepText(); }}});
}

void EditorPage::removedFromDisk() {
    m_notice->show(tr("Another program has removed this file. Saving makes it anew."), {{tr("OK"), [] {}}});
}

void EditorPage::setLanguage(const std::optional<Language>& language) {
    m_language = language;
    if (language)
        textView().setLanguageMode(languageMode(*language));
    else
        textView().setLanguageMode(PlainTextLanguageMode());
    Q_EMIT stateChanged();
}

void EditorPage::setIndentStrategy(const IndentStrategy& strategy) {
    textView().setIndentStrategy(strategy);
    Q_EMIT stateChanged();
}

void EditorPage::setLineEndings(LineEnding lineEndings) {
    if (textView().isEditable()) convertLineEndings(textView(), lineEndings);
    Q_EMIT stateChanged();
}

void EditorPage::openGoToLine() {
    const std::int64_t location = textView().selectedRange().value_or(TextRange()).location;
    m_goToLineBar->open(textView().textLocation(location).value_or(TextLocation()));
}

// The last line for a place behind the text.
void EditorPage::goTo(const TextLocation& place) {
    const std::int64_t lastLine = textView().document().lineManager->lineCount() - 1;
    const TextLocation inText{std::min(place.lineNumber, lastLine), place.column};
    const TextRange caret{textView().location(inText).value_or(0), 0};
    textView().setSelectedRange(caret);
    textView().scrollRangeToVisible(caret);
    m_goToLineBar->hide();
    m_view->setFocus();
}

void EditorPage::applyLook(const EditorLook& look) {
    m_look = look;
    m_view->setUserInterfaceStyle(look.style);
    TextView& text = textView();
    const ViewOptions& options = m_services.settings.viewOptions();
    text.setTheme(look.theme);
    text.scrollView()->setBackgroundColor(look.backgroundColor);
    text.setSelectionHighlightColor(look.selectionColor);
    text.setSelectionBarColor(look.selectionColor.withAlpha(1));
    text.setInsertionPointColor(look.theme->textColor());
    text.setShowLineNumbers(options.showLineNumbers);
    text.setLineSelectionDisplayType(LineSelectionDisplayType::line);
    text.setLineWrappingEnabled(options.wrapLines);
    text.setShowPageGuide(options.showPageGuide);
    text.changeInvisibleCharacterConfiguration([&](InvisibleCharacterConfiguration& invisibles) {
        invisibles.setFont(look.theme->font());
        invisibles.setTextColor(look.theme->invisibleCharactersColor());
        invisibles.setShowTabs(options.showInvisibles);
        invisibles.setShowSpaces(options.showInvisibles);
        invisibles.setShowNonBreakingSpaces(options.showInvisibles);
        invisibles.setShowLineBreaks(options.showInvisibles);
    });
    m_find->setHighlightColor(look.matchColor);
}

void EditorPage::textDidChange() {
    followLineEndings(textView());
    m_file.textDidChange();
    m_find->textDidChange();
    Q_EMIT stateChanged();
}

void EditorPage::selectionDidChange() {
    m_find->selectionDidChange();
    Q_EMIT stateChanged();
}

} // namespace tessarine::editor
