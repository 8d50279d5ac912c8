#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/base/Font.h"
#include "Tessarine/base/Size.h"
#include "Tessarine/base/TextMeasurer.h"
#include "Tessarine/theme/SemanticColors.h"

#include <memory>
#include <optional>
#include <string>

namespace tessarine {

// Which characters that nobody sees are marked, and with what. One for all rows of a text view, which have to
// be drawn anew when it has changed. Sizes in points; each is measured once. Main thread.
class InvisibleCharacterConfiguration {
public:
    // Never null.
    explicit InvisibleCharacterConfiguration(std::shared_ptr<const TextMeasurer> measurer)
        : m_measurer(std::move(measurer)) {}

    // Of the symbols.
    const Font& font() const { return m_font; }

    void setFont(Font font);

    const Color& textColor() const { return m_textColor; }

    void setTextColor(const Color& color) { m_textColor = color; }

    bool showTabs() const { return m_tab.isShown; }

    void setShowTabs(bool show) { m_tab.isShown = show; }

    bool showSpaces() const { return m_space.isShown; }

    void setShowSpaces(bool show) { m_space.isShown = show; }

    // Of effect only while another kind is shown as well.
    bool showNonBreakingSpaces() const { return m_nonBreakingSpace.isShown; }

    void setShowNonBreakingSpaces(bool show) { m_nonBreakingSpace.isShown = show; }

    bool showLineBreaks() const { return m_lineBreak.isShown; }

    void setShowLineBreaks(bool show) { m_lineBreak.isShown = show; }

    bool showSoftLineBreaks() const { return m_softLineBreak.isShown; }

    void setShowSoftLineBreaks(bool show) { m_softLineBreak.isShown = show; }

    // Whether a row's text has to be looked at.
    bool showsAny() const { return showTabs() || showSpaces() || showLineBreaks() || showSoftLineBreaks(); }

    const std::u16string& tabSymbol() const { return m_tab.symbol; }

    void setTabSymbol(std::u16string symbol) { m_tab.setSymbol(std::move(symbol)); }

    const std::u16string& spaceSymbol() const { return m_space.symbol; }

    void setSpaceSymbol(std::u16string symbol) { m_space.setSymbol(std::move(symbol)); }

    const std::u16string& nonBreakingSpaceSymbol() const { return m_nonBreakingSpace.symbol; }

    void setNonBreakingSpaceSymbol(std::u16string symbol) { m_nonBreakingSpace.setSymbol(std::move(symbol)); }

    const std::u16string& lineBreakSymbol() const { return m_lineBreak.symbol; }

    void setLineBreakSymbol(std::u16string symbol) { m_lineBreak.setSymbol(std::move(symbol)); }

    const std::u16string& softLineBreakSymbol() const { return m_softLineBreak.symbol; }

    void setSoftLineBreakSymbol(std::u16string symbol) { m_softLineBreak.setSymbol(std::move(symbol)); }

    // Nothing while they are not shown.
    Size lineBreakSymbolSize() const { return m_lineBreak.isShown ? sizeOf(m_lineBreak) : Size(); }

    Size softLineBreakSymbolSize() const {
        return m_softLineBreak.isShown ? sizeOf(m_softLineBreak) : Size();
    }

    // The room that is wanted behind every row.
    double maximumLineBreakSymbolWidth() const;

    // What marks a character and where it stands.
    struct Mark {
        const std::u16string& symbol;
        Size size;
        bool isAtEnd; // behind the row's text, not on the character
    };

    // Nothing for what is not shown.
    std::optional<Mark> markOf(std::u16string_view character) const;

private:
    struct Kind {
        std::u16string symbol;
        bool isShown = false;
        mutable std::optional<Size> size = std::nullopt; // once it was measured

        void setSymbol(std::u16string newSymbol) {
            symbol = std::move(newSymbol);
            size.reset();
        }
    };

    const Size& sizeOf(const Kind& kind) const;
    std::optional<Mark> markOf(const Kind& kind, bool isAtEnd) const;

    const std::shared_ptr<const TextMeasurer> m_measurer;
    Font m_font{"Menlo-Regular", 14, {}};
    Color m_textColor = semanticColors::tertiaryLabel;
    Kind m_tab{.symbol = u"\u25B8"};
    Kind m_space{.symbol = u"\u00B7"};
    Kind m_nonBreakingSpace{.symbol = u"\u00B7"};
    Kind m_lineBreak{.symbol = u"\u00AC"};
    Kind m_softLineBreak{.symbol = u"\u00AC"};
};

} // namespace tessarine
