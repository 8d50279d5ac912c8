#include "Tessarine/layout/InvisibleCharacterConfiguration.h"

#include <algorithm>

namespace tessarine {

void InvisibleCharacterConfiguration::setFont(Font font) {
    m_font = std::move(font);
    for (Kind* kind : {&m_tab, &m_space, &m_nonBreakingSpace, &m_lineBreak, &m_softLineBreak})
        kind->size.reset();
}

double InvisibleCharacterConfiguration::maximumLineBreakSymbolWidth() const {
    return std::max(lineBreakSymbolSize().width, softLineBreakSymbolSize().width);
}

std::optional<InvisibleCharacterConfiguration::Mark>
InvisibleCharacterConfiguration::markOf(std::u16string_view character) const {
    if (character == u" ") return markOf(m_space, false);
    if (character == u"\u00A0") return markOf(m_nonBreakingSpace, false);
    if (character == u"\t") return markOf(m_tab, false);
    if (character == u"\n" || character == u"\r" || character == u"\r\n") return markOf(m_lineBreak, true);
    if (character == u"\u2028") return markOf(m_softLineBreak, true);
    return std::nullopt;
}

std::optional<InvisibleCharacterConfiguration::Mark>
InvisibleCharacterConfiguration::markOf(const Kind& kind, bool isAtEnd) const {
    if (!kind.isShown) return std::nullopt;
    return Mark{.symbol = kind.symbol, .size = sizeOf(kind), .isAtEnd = isAtEnd};
}

const Size& InvisibleCharacterConfiguration::sizeOf(const Kind& kind) const {
    if (!kind.size)
        kind.size = {.width = m_measurer->width(kind.symbol, m_font),
                     .height = m_measurer->metrics(m_font).lineHeight()};
    return *kind.size;
}

} // namespace tessarine
