#include "Tessarine/syntax/highlighting/LineSyntaxHighlighter.h"

namespace tessarine {

void LineSyntaxHighlighter::setDefaultAttributes(AttributedString& attributedString) const {
    attributedString.setAttributes(
        {.foregroundColor = m_theme->textColor(), .font = m_theme->font(), .kern = m_kern},
        {.location = 0, .length = attributedString.length()});
}

} // namespace tessarine
