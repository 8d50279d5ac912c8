#pragma once

#include "Tessarine/document/AttributedString.h"
#include "Tessarine/document/DocumentLineNodeData.h"
#include "Tessarine/document/StringView.h"
#include "Tessarine/layout/HighlightedWindows.h"
#include "Tessarine/layout/LineControllerDelegate.h"
#include "Tessarine/layout/LineFragmentController.h"
#include "Tessarine/layout/LineFragmentControllerDelegate.h"
#include "Tessarine/layout/LineFragmentTree.h"
#include "Tessarine/layout/LineTextInputProxy.h"
#include "Tessarine/layout/LineTypesetter.h"
#include "Tessarine/theme/DefaultTheme.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <variant>
#include <vector>

namespace tessarine {

// All that the display knows of one line: its text with attributes, its rows, and what shows them. It comes
// to know it in stages, each of which runs again only when what it stands on has changed: text, default
// attributes, highlighting, rows.
//
// Units: ranges in code units from the line's start, points from its top left corner unless said otherwise.
// Invariants: rows follow each other without a gap; the tree has the same rows as the typesetter.
// Long lines, of more than longLineLength: the text is shared with the document and not copied; of the
// highlighting only the windows are made that show; after an edit the rows in front of it are kept; after a
// highlight only the rows are set anew that it can have moved. What shows is the same, with one exception:
// rows that have never shown have the default attributes, which counts if bold text is wider. Cost: of what
// is asked for, not of the line's length, but for this: rows are made from the line's start on, so far down a
// long line is far. Main thread.
class LineController final : public LineFragmentControllerDelegate,
                             public std::enable_shared_from_this<LineController> {
public:
    // The part of the line that shows. The rows above it are made, too; their highlighting may be left out,
    // and so may that of the text beside it. Without a width all of the rows show.
    struct InRect {
        Rect rect;
    };

    // A place in the line, and the row behind it.
    struct ToLocation {
        std::int64_t location;
    };

    using TypesetAmount = std::variant<InRect, ToLocation>;

    static constexpr std::int64_t longLineLength = 32 * 1024;

    // Nothing is null. To be made by std::make_shared.
    LineController(DocumentLineNodeReference line, std::shared_ptr<const StringView> stringView,
                   std::shared_ptr<const TextShaper> textShaper);

    const DocumentLineNode& line() const { return *m_line; }

    void setDelegate(std::weak_ptr<LineControllerDelegate> delegate) { m_delegate = std::move(delegate); }

    // Never null.
    const std::shared_ptr<const Theme>& theme() const { return m_theme; }

    void setTheme(std::shared_ptr<const Theme> theme);

    double tabWidth() const { return m_tabWidth; }

    void setTabWidth(double width);

    double kern() const { return m_kern; }

    void setKern(double kern);

    double lineFragmentHeightMultiplier() const { return m_typesetter.lineFragmentHeightMultiplier(); }

    void setLineFragmentHeightMultiplier(double multiplier);

    LineBreakMode lineBreakMode() const { return m_typesetter.lineBreakMode(); }

    void setLineBreakMode(LineBreakMode mode);

    // Of a row that has not been made, before it is multiplied.
    double estimatedLineFragmentHeight() const { return m_textInputProxy.estimatedLineFragmentHeight(); }

    void setEstimatedLineFragmentHeight(double height);

    // What the text may take of a row; no rows as long as it is 0.
    double constrainingWidth() const { return m_typesetter.constrainingWidth(); }

    void setConstrainingWidth(double width);

    // The text has changed.
    void invalidateString();

    // The syntax has changed, but not the text.
    void invalidateSyntaxHighlighting();

    // Colours that are on their way are called off: others are waited for now.
    void didLeaveScreen() { cancelSyntaxHighlighting(); }

    // The language mode has changed: another highlighter is asked for.
    void invalidateSyntaxHighlighter();

    // Brings everything up to date as far as the amount. In the background the highlighting comes later.
    void prepareToDisplayString(const TypesetAmount& amount, bool syntaxHighlightAsynchronously);

    // Null if the line is empty, or was not in the text when it was last prepared.
    std::shared_ptr<const AttributedString> attributedString() const { return m_attributedString; }

    // As far as they have been made.
    const LineFragments& lineFragments() const { return m_typesetter.lineFragments(); }

    const LineFragmentTree& lineFragmentTree() const { return m_lineFragmentTree; }

    // Of these rows.
    double maximumLineWidth() const { return m_typesetter.maximumLineWidth(); }

    // An estimate as long as there are rows to be made.
    double lineHeight();

    // What shows the rows that lie in the rectangle, whose y counts from the first line of the document.
    std::vector<std::shared_ptr<LineFragmentController>> lineFragmentControllers(const Rect& rect);

    // What an input method has not settled yet; it may reach beyond the line.
    void setMarkedTextOnLineFragments(const std::optional<TextRange>& range);

    // See LineTextInputProxy. They make the rows that they need.
    Rect caretRect(std::int64_t index);
    Rect firstRect(const TextRange& range);
    std::int64_t closestIndex(const Point& point);
    std::vector<Rect> selectionRects(const TextRange& range);

    std::optional<std::u16string> string(const LineFragmentController& controller) override;

private:
    // The stages.
    void clearLineFragmentControllersIfNeeded();
    void updateString();
    void updateDefaultAttributes();
    void updateSyntaxHighlighting(bool asynchronously);
    void updateTypesetter();
    void typeset(const TypesetAmount& amount);

    std::shared_ptr<AttributedString> currentString() const;
    void setDefaultAttributes(AttributedString& string);
    std::optional<std::int64_t> lengthOfKeptText(const AttributedString* formerString) const;

    bool isLong() const { return m_attributedString && m_attributedString->length() > longLineLength; }

    // The highlighting.
    LineSyntaxHighlighter& syntaxHighlighter();
    void cancelSyntaxHighlighting();
    LineSyntaxHighlighterInput highlighterInput(const TextRange& range);
    void highlight(const TextRange& range, bool asynchronously);
    void highlightLater(const TextRange& range, LineSyntaxHighlighterInput input);
    bool isAwaiting(const TextRange& range) const;
    void didHighlight(const TextRange& range, const std::shared_ptr<AttributedString>& highlighted);
    void didHighlightInBackground(const TextRange& range,
                                  const std::shared_ptr<AttributedString>& highlighted);
    void highlightWhatShows(const TypesetAmount& amount, bool asynchronously);
    void highlightPart(const TextRange& range);
    void takeHighlighted(const TextRange& range, const AttributedString& highlighted);
    std::vector<TextRange> partsWithoutColors(const TypesetAmount& amount) const;
    std::span<const LineFragmentReference> rowsOf(const TypesetAmount& amount) const;
    void typesetAgain(const TextRange& range);

    // What shows.
    void enter(const TypesetResult& result);
    void redisplay();
    void updateLineFragmentControllers();
    void show(const LineFragmentReference& fragment, LineFragmentController& controller) const;
    std::shared_ptr<LineFragmentController> lineFragmentController(const LineFragmentReference& fragment);
    void forgetLineFragmentControllersOffScreen();
    void settingsDidChange();

    const DocumentLineNodeReference m_line;
    const std::shared_ptr<const StringView> m_stringView;
    std::weak_ptr<LineControllerDelegate> m_delegate;

    // Settings.
    std::shared_ptr<const Theme> m_theme = std::make_shared<DefaultTheme>();
    double m_tabWidth = 10;
    double m_kern = 0;
    std::optional<TextRange> m_markedRange;

    // Highlights in the background, of which there is one at a time.
    struct AwaitedHighlight {
        TextRange range;
        std::shared_ptr<const AttributedString> string; // that gets the attributes

        bool covers(const TextRange& other) const {
            return range.location <= other.location && other.limit() <= range.limit();
        }
    };

    // What the stages have made.
    std::shared_ptr<AttributedString> m_attributedString;
    std::shared_ptr<LineSyntaxHighlighter> m_cachedSyntaxHighlighter;
    std::optional<AwaitedHighlight> m_awaitedHighlight;
    HighlightedWindows m_highlightedWindows; // of a long line
    LineTypesetter m_typesetter;
    LineFragmentTree m_lineFragmentTree;
    LineTextInputProxy m_textInputProxy;
    std::unordered_map<LineFragmentID, std::shared_ptr<LineFragmentController>> m_lineFragmentControllers;
    std::optional<double> m_lineHeight;

    // What they have to make again.
    bool m_isLineFragmentCacheInvalid = true;
    bool m_isStringInvalid = true;
    bool m_isDefaultAttributesInvalid = true;
    bool m_isSyntaxHighlightingInvalid = true;
    bool m_isTypesetterInvalid = true;
    std::optional<std::int64_t> m_lengthOfKeptText; // whose rows stay when the others are made again
};

} // namespace tessarine
