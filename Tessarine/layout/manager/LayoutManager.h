#pragma once

#include "Tessarine/editing/TextInputLayout.h"
#include "Tessarine/layout/LineControllerDelegate.h"
#include "Tessarine/layout/manager/ContentSize.h"
#include "Tessarine/layout/manager/GutterLayout.h"
#include "Tessarine/layout/manager/HighlightLayout.h"
#include "Tessarine/layout/manager/LayoutContext.h"
#include "Tessarine/layout/manager/LayoutGeometry.h"
#include "Tessarine/layout/manager/LayoutManagerDelegate.h"
#include "Tessarine/layout/manager/LineControllers.h"
#include "Tessarine/layout/manager/LineFragmentLayout.h"
#include "Tessarine/layout/manager/LineNumberWidth.h"
#include "Tessarine/layout/manager/LineSelectionLayout.h"
#include "Tessarine/layout/manager/TextGeometry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

namespace tessarine {

// Turns the part of a document that is on screen into views, and tells where its text lies.
//
// Lines count by an estimate of their height until they have been laid out, so a document opens without being
// measured. The price is that heights change while the user scrolls: then the scroll view is moved by as
// much, so that what shows at its top stays there.
//
// Units: points of the scroll view's content; locations in code units. Thread: the main one.
// Cost: a pass lays out what is on screen, however long the document is; a line is found in O(log n).
class LayoutManager final : public TextInputLayout,
                            public LineControllerDelegate,
                            public std::enable_shared_from_this<LayoutManager> {
public:
    // Of an empty document, with nothing on screen.
    static std::shared_ptr<LayoutManager> create(std::shared_ptr<const TextShaper> textShaper,
                                                 const std::shared_ptr<const TextMeasurer>& textMeasurer);

    void setDelegate(std::weak_ptr<LayoutManagerDelegate> delegate) { m_delegate = std::move(delegate); }

    // Where the views go. Nothing shows without.
    void setViews(const std::shared_ptr<ScrollView>& scrollView, View& textInputView);

    const LayoutContext& context() const { return m_context; }

    // What is laid out.
    void setDocument(const EditedDocument& document) override;
    void setLanguageMode(std::shared_ptr<InternalLanguageMode> languageMode);

    // And how. Each setter marks what has to be laid out again.
    void setTheme(std::shared_ptr<const Theme> theme);
    void setScrollViewWidth(double width);

    void safeAreaInsetsDidChange() { widthsDidChange(); }

    void setViewport(const Rect& viewport);
    void setTextContainerInset(const EdgeInsets& inset);
    void setLineWrappingEnabled(bool isEnabled);
    void setLineBreakMode(LineBreakMode mode);
    void setLineHeightMultiplier(double multiplier);
    void setKern(double kern);
    void setTabWidth(double tabWidth) override;
    void
    setInvisibleCharacterConfiguration(std::shared_ptr<const InvisibleCharacterConfiguration> configuration);
    void setShowLineNumbers(bool showsNumbers);
    void setGutterPadding(double leading, double trailing);
    void setEditing(bool isEditing);
    void setLineSelectionDisplayType(LineSelectionDisplayType type);
    void setSelectedRange(std::optional<TextRange> range);
    void setMarkedRange(std::optional<TextRange> range);
    void setHighlightedRanges(const HighlightedRangeIndex::Ranges& ranges);

    // To be told before the layout of such a change, as highlighted ranges move along.
    void textDidChange(const TextReplacement& replacement) { m_highlights.textDidChange(replacement); }

    // What changes in the document.
    void invalidateLines(const LineChangeSet& changes);

    void invalidateContentSize() override { m_contentSize.invalidate(); }

    void removeLine(const DocumentLineNodeID& lineID) override;
    void removeAllLines() override;
    void typesetLines(const LineSet& lines) override;

    void lineCountDidChange() override { updateGutterWidth(); }

    // The pass.
    bool needsLayout() const { return m_needsLayout || m_needsLayoutLineSelection; }

    void setNeedsLayout() override { setNeedsLayout(Cause::Change); }

    void layoutIfNeeded() override;
    void layoutLines();

    // Draws them anew, as the symbols of invisible characters have changed.
    void redisplayVisibleLines();

    // Typesets what has not been on screen yet, so that one can scroll there.
    void typesetLines(std::int64_t toLocation);
    void typesetLines(const Rect& rect);

    // What came out.
    Size contentSize() override { return m_contentSize.size(); }

    const LayoutGeometry& geometry() const { return m_geometry; }

    const LineFragmentLayout& rows() const { return m_rows; }

    const GutterLayout& gutter() const { return m_gutter; }

    GutterLayout& gutter() { return m_gutter; }

    const HighlightLayout& highlights() const { return m_highlights; }

    const LineSelectionLayout& lineSelection() const { return m_lineSelection; }

    const std::unordered_set<DocumentLineNodeID>& visibleLineIDs() const { return m_visibleLineIDs; }

    std::size_t lineControllerCount() const { return m_lineControllers.count(); }

    // Of any line of the document, with all settings; to be prepared as far as it is needed.
    LineController& lineController(DocumentLineNode& line);

    Rect caretRect(std::int64_t location) { return m_textGeometry.caretRect(location); }

    Rect firstRect(const TextRange& range) { return m_textGeometry.firstRect(range); }

    std::int64_t closestIndex(const Point& point) { return m_textGeometry.closestIndex(point); }

    std::vector<TextSelectionRect> selectionRects(const TextRange& range) {
        return m_textGeometry.selectionRects(range);
    }

private:
    // After scrolling colours may come later; a change is to be seen at once.
    enum class Cause : std::uint8_t { Scrolling, Change };

    LayoutManager(std::shared_ptr<const TextShaper> textShaper,
                  const std::shared_ptr<const TextMeasurer>& textMeasurer);

    std::shared_ptr<LineSyntaxHighlighter> lineSyntaxHighlighter(LineController& controller) override;
    void lineControllerDidChangeHeight(LineController& controller) override;

    void setNeedsLayout(Cause cause);
    void setNeedsLayoutLineSelection();
    template <class Value>
    bool change(Value& current, Value value);
    void lineSettingsDidChange();
    void widthsDidChange();
    void updateGutterWidth();

    void layoutVisibleLines();
    DocumentLineNode* settledFirstLine();
    DocumentLineNode* lineAtTop() const;
    void measureLongestLine();
    double prepareLine(DocumentLineNode& line, const LineController::TypesetAmount& amount);
    void placeLine(DocumentLineNode& line, std::int64_t row);
    void showMarkedText(LineController& controller, const DocumentLineNode& line) const;
    LineController::TypesetAmount visiblePartOf(const Rect& rect, const DocumentLineNode& line) const;
    double moveViewport(double shift);
    void finishPass();
    void callOffColorsOf(const std::unordered_set<DocumentLineNodeID>& formerLines);
    void layoutLineSelection();
    bool hasNewContentSize();
    void reportContentSize();
    void scrollBy(double shift);

    std::weak_ptr<LayoutManagerDelegate> m_delegate;
    LayoutContext m_context;
    double m_gutterWidth = 0; // that the delegate knows of

    LineNumberWidth m_lineNumberWidth;
    LayoutGeometry m_geometry{m_context, m_lineNumberWidth};
    ContentSize m_contentSize{m_context, m_geometry};
    LineControllers m_lineControllers;
    TextGeometry m_textGeometry{m_context, m_geometry, m_lineControllers, m_contentSize};

    LineFragmentLayout m_rows{m_context, m_geometry};
    HighlightLayout m_highlights{m_geometry};
    LineSelectionLayout m_lineSelection{m_context, m_geometry};
    GutterLayout m_gutter;
    std::unordered_set<DocumentLineNodeID> m_visibleLineIDs;

    bool m_needsLayout = false;
    bool m_needsLayoutLineSelection = false;
    Cause m_cause = Cause::Change; // of the pass to come
};

} // namespace tessarine
