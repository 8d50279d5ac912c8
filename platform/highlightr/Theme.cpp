#include "platform/highlightr/Theme.h"

#include <algorithm>
#include <span>

namespace platform {

using highlight::Compound;
using highlight::Style;

namespace {

// The classes of one element of the highlighter's markup.
using Element = QStringList;

Element elementOfCode(const QString& language) {
    return {QStringLiteral("hljs"), QStringLiteral("language-") + language, language};
}

// "title.function.invoke" is hljs-title, function_ and invoke__; "language:xml" is language-xml.
Element elementOfScope(const QString& scope) {
    if (scope.startsWith(QStringLiteral("language:"))) return {QStringLiteral("language-") + scope.mid(9)};
    Element classes = scope.split(u'.');
    for (qsizetype i = 1; i < classes.size(); ++i)
        classes[i] += QString(i, u'_');
    classes[0].prepend(QStringLiteral("hljs-"));
    return classes;
}

bool matches(const Element& element, const Compound& compound) {
    return std::ranges::all_of(compound.classes, [&](const QString& name) { return element.contains(name); });
}

// Whether the selector matches the last element of the chain.
bool matches(std::span<const Element> chain, std::span<const Compound> selector) {
    if (chain.empty() || !matches(chain.back(), selector.back())) return false;
    const auto before = selector.first(selector.size() - 1);
    if (before.empty()) return true;
    for (std::size_t size = chain.size() - 1; size > 0; --size) {
        if (matches(chain.first(size), before)) return true;
        if (selector.back().isChild) return false;
    }
    return false;
}

Style styleOf(std::span<const Element> chain, const std::vector<highlight::Rule>& rules) {
    Style style;
    const auto take = [](auto& into, const auto& from) {
        if (from) into = from;
    };
    for (const auto& rule : rules) {
        if (!matches(chain, rule.selector)) continue;
        take(style.color, rule.style.color);
        take(style.background, rule.style.background);
        take(style.bold, rule.style.bold);
        take(style.italic, rule.style.italic);
        take(style.underline, rule.style.underline);
    }
    return style;
}

} // namespace

Theme::Theme(QString name, const QString& css)
    : m_name(std::move(name))
    , m_rules(highlight::parseStyleSheet(css)) {
    const std::vector<Element> code{{QStringLiteral("hljs")}};
    const Style style = styleOf(code, m_rules);
    m_background = style.background.value_or(m_background);
    m_foreground = style.color.value_or(m_foreground);
}

TextAttributes Theme::attributesFor(const QString& language, const std::vector<QString>& scopePath) const {
    std::vector<Element> chain{elementOfCode(language)};
    TextAttributes attributes;
    for (const QString& scope : scopePath) {
        chain.push_back(elementOfScope(scope));
        const Style style = styleOf(chain, m_rules);
        // All of it holds for what is nested inside until something there says otherwise.
        if (style.color) attributes.foreground = style.color;
        if (style.background) attributes.background = style.background;
        if (style.bold) attributes.bold = *style.bold;
        if (style.italic) attributes.italic = *style.italic;
        if (style.underline) attributes.underline = *style.underline;
    }
    return attributes;
}

} // namespace platform
