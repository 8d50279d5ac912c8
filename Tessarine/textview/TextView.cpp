#include "Tessarine/textview/TextView.h"

#include "Tessarine/syntax/InternalLanguageModeFactory.h"

namespace tessarine {

std::shared_ptr<TextView> TextView::create(const TextViewServices& services) {
    const std::shared_ptr<TextView> view(new TextView(services)); // NOLINT: the constructor is private
    view->m_layoutManager->setDelegate(view);
    view->m_textInputView->setDelegate(view);
    view->m_highlightNavigationController.setDelegate(view);
    view->m_keyboardObserver.setDelegate(view);
    return view;
}

TextView::TextView(const TextViewServices& services)
    : m_mainExecutor(services.mainExecutor)
    , m_textMeasurer(services.textMeasurer)
    , m_layoutManager(LayoutManager::create(services.textShaper, services.textMeasurer))
    , m_textInputView(TextInputView::create(m_layoutManager, services.timerScheduler, services.textMeasurer))
    , m_invisibleCharacterConfiguration(
          std::make_shared<InvisibleCharacterConfiguration>(services.textMeasurer))
    , m_pageGuideController(services.textMeasurer)
    , m_rows(std::make_shared<LaidOutRows>(*m_layoutManager))
    , m_lineMovementController(document().stringView, document().lineManager)
    , m_movement(*m_textInputView, *m_layoutManager) {
    m_lineMovementController.setDelegate(m_rows);
    m_layoutManager->setInvisibleCharacterConfiguration(m_invisibleCharacterConfiguration);
    addViews();
    showTheme();
}

// From the back to the front: adding a view again brings it to the front.
void TextView::addViews() {
    m_scrollView->addSubview(m_contentView);
    m_contentView->addSubview(m_pageGuideController.guideView());
    m_layoutManager->setViews(m_scrollView, *m_contentView);
    m_contentView->addSubview(m_selectionLayout.selectionContainerView());
    m_contentView->addSubview(m_layoutManager->rows().linesContainerView());
    m_contentView->addSubview(m_selectionLayout.caretContainerView());
    m_contentView->addSubview(m_layoutManager->gutter().gutterContainerView());
    m_pageGuideController.guideView()->setHidden(true);
}

void TextView::setText(std::u16string_view text) {
    m_textInputView->unmarkText();
    m_textInputView->undoManager().removeAllActions();
    m_textInputView->setString(TextStore(text));
    syncMarkedRange();
}

// Whoever is told of anything meanwhile finds all parts at the new document.
void TextView::setState(const TextViewState& state) {
    m_lineMovementController.setDocument(state.document().stringView, state.document().lineManager);
    forgetHighlightedRanges();
    m_textInputView->setState(state);
    setTheme(state.theme());
    syncMarkedRange();
    m_layoutManager->setSelectedRange(selectedRange());
    updateContentSize(m_layoutManager->contentSize());
    setNeedsSelectionLayout();
    tellHost([](TextViewHost& host) { host.textViewDidReplaceAll(); });
}

void TextView::setLanguageMode(const LanguageMode& languageMode, ParseCompletion completion) {
    const auto mode = InternalLanguageModeFactory(m_mainExecutor)
                          .internalLanguageMode(languageMode, document().stringView, document().lineManager);
    m_textInputView->setLanguageMode(mode);
    m_layoutManager->setLanguageMode(mode);
    auto didParse = [view = weak_from_this(), parsed = std::weak_ptr(mode),
                     completion = std::move(completion)](bool isParsed) mutable {
        if (const auto living = view.lock(); living && isParsed) living->didParse(parsed.lock());
        if (completion) completion(isParsed);
    };
    mode->parse(document().stringView->snapshot(), std::move(didParse));
}

// The colours of what shows come anew.
void TextView::didParse(const std::shared_ptr<InternalLanguageMode>& languageMode) {
    if (document().languageMode == languageMode) m_layoutManager->setLanguageMode(languageMode);
}

bool TextView::beginEditing() {
    if (m_isEditing) return true;
    const auto delegate = editorDelegate();
    if (delegate && !delegate->textViewShouldBeginEditing(*this)) return false;
    if (m_isEditing || !m_isEditable) return m_isEditing;
    m_isEditing = true;
    m_layoutManager->setEditing(true);
    if (!selectedRange()) setSelectedRange(TextRange{});
    setNeedsSelectionLayout();
    tellHost([](TextViewHost& host) { host.textViewDidChangeEditing(); });
    if (delegate) delegate->textViewDidBeginEditing(*this);
    return m_isEditing;
}

bool TextView::endEditing() {
    if (!m_isEditing) return true;
    const auto delegate = editorDelegate();
    if (delegate && !delegate->textViewShouldEndEditing(*this)) return false;
    finishEditing();
    return true;
}

void TextView::setEditable(bool isEditable) {
    m_isEditable = isEditable;
    if (!isEditable) finishEditing();
}

void TextView::finishEditing() {
    if (!std::exchange(m_isEditing, false)) return;
    unmarkText();
    endFloatingCursor();
    m_layoutManager->setEditing(false);
    setNeedsSelectionLayout();
    tellHost([](TextViewHost& host) { host.textViewDidChangeEditing(); });
    if (const auto delegate = editorDelegate()) delegate->textViewDidEndEditing(*this);
}

} // namespace tessarine
