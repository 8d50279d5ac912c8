#pragma once

#include "Tessarine/document/LineEnding.h"
#include "Tessarine/document/TextLocation.h"
#include "Tessarine/document/search/HighlightNavigationController.h"
#include "Tessarine/document/search/HighlightedRangeLoopingMode.h"
#include "Tessarine/document/search/SearchController.h"
#include "Tessarine/document/search/TextPreview.h"
#include "Tessarine/editing/TextInputView.h"
#include "Tessarine/editing/TextInputViewDelegate.h"
#include "Tessarine/editing/TextViewState.h"
#include "Tessarine/layout/PageGuideController.h"
#include "Tessarine/layout/manager/LayoutManager.h"
#include "Tessarine/layout/manager/LayoutManagerDelegate.h"
#include "Tessarine/syntax/LanguageMode.h"
#include "Tessarine/syntax/SyntaxNode.h"
#include "Tessarine/textview/GoToLineSelection.h"
#include "Tessarine/textview/KeyboardObserver.h"
#include "Tessarine/textview/LaidOutRows.h"
#include "Tessarine/textview/LineMovementController.h"
#include "Tessarine/textview/SelectionLayout.h"
#include "Tessarine/textview/SelectionMovement.h"
#include "Tessarine/textview/TextInputPositions.h"
#include "Tessarine/textview/TextInputStringTokenizer.h"
#include "Tessarine/textview/TextViewDelegate.h"
#include "Tessarine/textview/TextViewHost.h"
#include "Tessarine/textview/TextViewServices.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

// Shows a document and edits it: the engine's one public object. A host puts scrollView() on its screen,
// tells of sizes, scrolling, keys and the keyboard's focus, and calls layoutIfNeeded() before it paints.
//
// A new view is empty, editable and of plain text, with no selection. Ranges that come in are brought into
// the text; a negative length reaches back from the location. Points and rectangles are those of the scroll
// view's content.
//
// Units: locations in code units, lengths in points. Thread: the main one.
// Cost: an operation looks at the lines that it concerns, not at the document, but for setText(), search()
// and replaceText(); opening a large document without blocking: TextViewState.
class TextView final : public TextInputViewDelegate,
                       public LayoutManagerDelegate,
                       public HighlightNavigationControllerDelegate,
                       public SearchControllerDelegate,
                       public KeyboardObserverDelegate,
                       public std::enable_shared_from_this<TextView> {
public:
    using ParseCompletion = InternalLanguageMode::ParseCompletion;

    static std::shared_ptr<TextView> create(const TextViewServices& services);

    // ---- Whom it speaks to.

    std::shared_ptr<TextViewDelegate> editorDelegate() const { return m_editorDelegate.lock(); }

    void setEditorDelegate(std::weak_ptr<TextViewDelegate> delegate) {
        m_editorDelegate = std::move(delegate);
    }

    void setHost(std::weak_ptr<TextViewHost> host) { m_host = std::move(host); }

    // An input system that keeps a copy of text and selection.
    void setInputDelegate(std::weak_ptr<TextInputDelegate> delegate);

    // ---- What shows on screen.

    // The root of the views; its ViewHost is the host's to set.
    const std::shared_ptr<ScrollView>& scrollView() const { return m_scrollView; }

    void setSize(const Size& size);
    void setSafeAreaInsets(const EdgeInsets& insets);

    // Device pixels a point.
    void setScreenScale(double scale);

    // The keyboard on the screen, if the host has one.
    KeyboardObserver& keyboardObserver() { return m_keyboardObserver; }

    // Brought into the range that one can scroll over.
    void setContentOffset(const Point& offset);

    // The range that one can scroll over.
    Point minimumContentOffset() const;
    Point maximumContentOffset() const;

    // Of a row that has not been laid out.
    double lineHeight() const;

    // From the corner of the view to the content.
    Point contentPoint(const Point& pointInView) const;

    void layoutIfNeeded();

    // For blinking. One that cannot show stays hidden.
    void setCaretShown(bool isShown);

    // ---- The document.

    std::u16string text() const { return document().stringView->string(); }

    // Ends what could be undone.
    void setText(std::u16string_view text);

    // Its theme comes with it. What was detected is advice for the caller.
    void setState(const TextViewState& state);

    // Parses in the background. The completion may be empty; false if another mode or document came before
    // the end.
    void setLanguageMode(const LanguageMode& languageMode, ParseCompletion completion = {});

    // For reading; a snapshot of its string view may be searched on any thread.
    const EditedDocument& document() const { return m_textInputView->document(); }

    // ---- Editing.

    bool isEditing() const { return m_isEditing; }

    // False if the delegate does not want it. Without a selection the caret goes to the start.
    bool beginEditing();
    bool endEditing();

    bool isEditable() const { return m_isEditable; }

    // Not to be editable any more ends editing, whatever the delegate wants.
    void setEditable(bool isEditable);

    bool isSelectable() const { return m_isSelectable; }

    // For hosts: whether a pointer selects text.
    void setSelectable(bool isSelectable) { m_isSelectable = isSelectable; }

    // These change nothing while the view is not editable; so do all below that edit.
    void insertText(std::u16string_view text);
    void deleteText(TextDeletion deletion);

    // The same as the key: the selection, else what is in front of the caret.
    void deleteBackward() { deleteText(TextDeletion::backward); }

    void replace(const TextRange& range, std::u16string_view text);

    // In place of the selection, as an undo step of its own and without a part of character pairs in it.
    void paste(std::u16string_view text);

    // For dragging within the view: one undo step; the text is selected where it comes to stand. The place is
    // one of the text as it is; inside of the range nothing happens.
    void moveText(const TextRange& range, std::int64_t location);

    void shiftLeft();
    void shiftRight();
    void moveSelectedLinesUp();
    void moveSelectedLinesDown();
    void replaceText(const BatchReplaceSet& replacements);

    // For what another program has made of a part of the text: it goes in as it is and unasked for, as an
    // undo step of its own, and the selection stays with its text.
    void takeChange(const TextRange& range, std::u16string_view text);

    bool canUndo() const { return m_isEditable && m_textInputView->undoManager().canUndo(); }

    bool canRedo() const { return m_isEditable && m_textInputView->undoManager().canRedo(); }

    void undo();
    void redo();

    const UndoManager& undoManager() const { return m_textInputView->undoManager(); }

    // ---- Text that an input method has not settled yet.

    const std::optional<TextRange>& markedRange() const { return m_textInputView->markedRange(); }

    // In place of the marked range, else of the selection. What is selected counts from the text's start.
    void setMarkedText(std::u16string_view text, const TextRange& selectedInText);
    void unmarkText();

    // ---- The selection.

    const std::optional<TextRange>& selectedRange() const { return m_textInputView->selectedRange(); }

    void setSelectedRange(std::optional<TextRange> range);

    SelectionMovement& movement() { return m_movement; }

    // The same, and what has moved is brought into view.
    void moveCaret(CaretMovement movement, SelectionMode mode);

    // ---- Places.

    Rect caretRect(std::int64_t location) { return m_layoutManager->caretRect(location); }

    // Where the caret shows, or the moving end of the selection; nothing without a selection.
    std::optional<Rect> caretRect() { return m_movement.headRect(); }

    Rect firstRect(const TextRange& range);
    std::vector<TextSelectionRect> selectionRects(const TextRange& range);
    std::int64_t closestIndex(const Point& point);

    std::u16string text(const TextRange& range) const;

    // Nothing outside of the text. The other way round a column behind the line's text is its end.
    std::optional<TextLocation> textLocation(std::int64_t location) const;
    std::optional<std::int64_t> location(const TextLocation& textLocation) const;

    // False if there is no such line.
    bool goToLine(std::int64_t lineIndex, GoToLineSelection selection = GoToLineSelection::beginning);

    std::optional<SyntaxNode> syntaxNode(std::int64_t location) const;

    // For an input system. They hold for the document as it is.
    TextInputPositions positions() const;
    TextInputStringTokenizer tokenizer() const;

    const LineMovementController& lineMovementController() const { return m_lineMovementController; }

    // ---- Scrolling.

    void scrollRangeToVisible(const TextRange& range);

    bool isAutomaticScrollEnabled() const { return m_isAutomaticScrollEnabled; }

    void setAutomaticScrollEnabled(bool isEnabled) { m_isAutomaticScrollEnabled = isEnabled; }

    // How far from the edges what is scrolled to is kept.
    const EdgeInsets& automaticScrollInset() const { return m_automaticScrollInset; }

    void setAutomaticScrollInset(const EdgeInsets& inset) { m_automaticScrollInset = inset; }

    // Room behind the content, as a factor of the view's size.
    double verticalOverscrollFactor() const { return m_verticalOverscrollFactor; }

    void setVerticalOverscrollFactor(double factor);

    double horizontalOverscrollFactor() const { return m_horizontalOverscrollFactor; }

    void setHorizontalOverscrollFactor(double factor);

    // A caret that follows a finger.
    void beginFloatingCursor(const Point& point);
    void updateFloatingCursor(const Point& point);
    void endFloatingCursor();

    bool hasFloatingCursor() const { return m_hasFloatingCursor; }

    // ---- Search. An editor that searches while the user types: MatchFinder on a snapshot.

    std::vector<SearchResult> search(const SearchQuery& query) const;
    std::vector<SearchReplaceResult> search(const SearchQuery& query,
                                            std::u16string_view replacementString) const;
    std::optional<TextPreview> textPreview(const TextRange& range) const;

    // Those behind an edit move along with it, those that it touches go; all go where the whole text is
    // exchanged.
    HighlightNavigationController::Ranges highlightedRanges() const;
    void setHighlightedRanges(const HighlightNavigationController::Ranges& ranges);

    HighlightedRangeLoopingMode highlightedRangeLoopingMode() const { return m_highlightedRangeLoopingMode; }

    void setHighlightedRangeLoopingMode(HighlightedRangeLoopingMode mode);

    // As if the user went there: editing begins, and the range is selected and scrolled to. An index outside
    // of the list stops the program.
    void selectPreviousHighlightedRange();
    void selectNextHighlightedRange();
    void selectHighlightedRange(std::int64_t index);

    // For a menu: of the highlighted range that is selected.
    bool canReplaceTextInHighlightedRange();
    void replaceTextInHighlightedRange();

    // ---- Looks.

    const std::shared_ptr<const Theme>& theme() const { return layoutContext().theme; }

    void setTheme(std::shared_ptr<const Theme> theme);

    const Color& insertionPointColor() const { return m_selectionLayout.insertionPointColor(); }

    void setInsertionPointColor(const Color& color) { m_selectionLayout.setInsertionPointColor(color); }

    const Color& selectionHighlightColor() const { return m_selectionLayout.selectionHighlightColor(); }

    void setSelectionHighlightColor(const Color& color) {
        m_selectionLayout.setSelectionHighlightColor(color);
    }

    // Of the grips at a selection's ends, which are the host's.
    const Color& selectionBarColor() const { return m_selectionBarColor; }

    void setSelectionBarColor(const Color& color);

    bool showLineNumbers() const { return layoutContext().showLineNumbers; }

    void setShowLineNumbers(bool showsNumbers);

    double gutterWidth() const { return m_layoutManager->geometry().gutterWidth(); }

    double gutterLeadingPadding() const { return layoutContext().gutterLeadingPadding; }

    void setGutterLeadingPadding(double padding);

    double gutterTrailingPadding() const { return layoutContext().gutterTrailingPadding; }

    void setGutterTrailingPadding(double padding);

    bool showPageGuide() const { return m_showPageGuide; }

    void setShowPageGuide(bool showsGuide);

    std::int64_t pageGuideColumn() const { return m_pageGuideController.column(); }

    void setPageGuideColumn(std::int64_t column);

    LineSelectionDisplayType lineSelectionDisplayType() const {
        return layoutContext().lineSelectionDisplayType;
    }

    void setLineSelectionDisplayType(LineSelectionDisplayType type);

    double lineHeightMultiplier() const { return layoutContext().lineHeightMultiplier; }

    void setLineHeightMultiplier(double multiplier);

    double kern() const { return layoutContext().kern; }

    void setKern(double kern);

    bool isLineWrappingEnabled() const { return layoutContext().isLineWrappingEnabled; }

    void setLineWrappingEnabled(bool isEnabled);

    // Tells where lines are broken while they are wrapped.
    LineBreakMode lineBreakMode() const { return layoutContext().lineBreakMode; }

    void setLineBreakMode(LineBreakMode mode);

    const EdgeInsets& textContainerInset() const { return layoutContext().textContainerInset; }

    void setTextContainerInset(const EdgeInsets& inset);

    const InvisibleCharacterConfiguration& invisibleCharacterConfiguration() const {
        return *m_invisibleCharacterConfiguration;
    }

    // Whatever the change does to it shows.
    void changeInvisibleCharacterConfiguration(
        const std::function<void(InvisibleCharacterConfiguration&)>& change);

    // ---- What is typed.

    LineEnding lineEndings() const { return m_textInputView->lineEndings(); }

    void setLineEndings(LineEnding lineEndings) { m_textInputView->setLineEndings(lineEndings); }

    const IndentStrategy& indentStrategy() const {
        return m_textInputView->indentController().indentStrategy();
    }

    void setIndentStrategy(const IndentStrategy& strategy);

    const CharacterPairs::List& characterPairs() const { return m_textInputView->characterPairs().list(); }

    void setCharacterPairs(CharacterPairs::List pairs);

    CharacterPairTrailingComponentDeletionMode characterPairTrailingComponentDeletionMode() const {
        return m_textInputView->characterPairs().trailingComponentDeletionMode();
    }

    void setCharacterPairTrailingComponentDeletionMode(CharacterPairTrailingComponentDeletionMode mode);

private:
    explicit TextView(const TextViewServices& services);

    bool textInputViewShouldChangeText(const TextRange& range, std::u16string_view text) override;
    bool textInputViewShouldInsertCharacterPair(const CharacterPair& pair, const TextRange& range) override;
    bool textInputViewShouldSkipTrailingComponent(const CharacterPair& pair, const TextRange& range) override;
    void textInputViewScrollToVisible(std::int64_t location) override;
    void textInputViewDidReplace(const TextRange& range, std::u16string_view oldText,
                                 std::u16string_view newText) override;
    void textInputViewDidExchangeText() override;
    void textInputViewDidChange() override;
    void textInputViewDidChangeSelection() override;

    Size textInputViewContentSize() override { return m_layoutContentSize; }

    void textInputViewNeedsContentSizeUpdate() override;

    void layoutManagerDidChangeContentSize(const Size& size) override;
    void layoutManagerDidChangeGutterWidth() override;
    void layoutManagerNeedsLayout() override;

    void didNavigate(const HighlightNavigationStep& step) override;
    std::optional<LinePosition> linePosition(std::int64_t location) const override;

    void keyboardWillShow(double height) override;
    void keyboardWillHide() override;
    void keyboardDidChangeHeight(double height) override;

    const LayoutContext& layoutContext() const { return m_layoutManager->context(); }

    void addViews();
    void showTheme();
    void showHairlines();
    void didParse(const std::shared_ptr<InternalLanguageMode>& languageMode);
    void finishEditing();

    template <class Work>
    void edit(Work work);
    void syncMarkedRange();
    void tellOfReplacements(TextViewHost& host);

    bool hasViewport() const;
    void viewportDidChange();
    void setCoveredHeight(double height);
    void updateContentSize(const Size& size);
    void setNeedsSelectionLayout();
    void layoutSelection();
    std::vector<TextSelectionRect> shownSelectionRects(const TextRange& range) const;
    void layoutPageGuide();
    void scrollToVisible(std::int64_t location);
    Point offsetShowing(const Rect& rect) const;
    void showFloatingCaret(const Point& point);

    SearchController searchController() const;
    void forgetHighlightedRanges();
    std::shared_ptr<const HighlightedRange> selectedHighlightedRange() const;

    template <class Tell>
    void tellHost(Tell tell) const {
        if (const auto host = m_host.lock()) tell(*host);
    }

    struct UntoldReplacement {
        TextRange range;
        std::u16string oldText;
        std::u16string newText;
    };

    std::weak_ptr<TextViewDelegate> m_editorDelegate;
    std::weak_ptr<TextViewHost> m_host;
    std::vector<UntoldReplacement> m_untoldReplacements;
    bool m_hasUntoldExchange = false;

    const std::shared_ptr<MainExecutor> m_mainExecutor;
    const std::shared_ptr<const TextMeasurer> m_textMeasurer;

    const std::shared_ptr<ScrollView> m_scrollView = std::make_shared<ScrollView>();
    const std::shared_ptr<View> m_contentView = std::make_shared<View>();
    const std::shared_ptr<LayoutManager> m_layoutManager;
    const std::shared_ptr<TextInputView> m_textInputView;
    const std::shared_ptr<InvisibleCharacterConfiguration> m_invisibleCharacterConfiguration;
    PageGuideController m_pageGuideController;
    SelectionLayout m_selectionLayout;

    const std::shared_ptr<LaidOutRows> m_rows;
    LineMovementController m_lineMovementController;
    SelectionMovement m_movement;
    HighlightNavigationController m_highlightNavigationController;
    KeyboardObserver m_keyboardObserver;

    bool m_isEditing = false;
    bool m_isEditable = true;
    bool m_isSelectable = true;
    bool m_isCaretShown = true;
    bool m_hasFloatingCursor = false;
    bool m_showPageGuide = false;
    Color m_selectionBarColor{RGBAColor{}};
    double m_screenScale = 1;
    HighlightedRangeLoopingMode m_highlightedRangeLoopingMode = HighlightedRangeLoopingMode::disabled;

    bool m_isAutomaticScrollEnabled = true;
    EdgeInsets m_automaticScrollInset;
    double m_verticalOverscrollFactor = 0;
    double m_horizontalOverscrollFactor = 0;

    Size m_layoutContentSize; // the scroll view's without overscroll
    bool m_hasPendingContentSizeUpdate = false;
    bool m_needsSelectionLayout = true;
    bool m_isLayingOut = false;
};

} // namespace tessarine
