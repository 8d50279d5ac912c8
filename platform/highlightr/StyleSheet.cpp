#include "platform/highlightr/StyleSheet.h"

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtGui/QColor>

#include <algorithm>

namespace platform::highlight {

namespace {

using Variables = QHash<QString, QString>;

std::optional<QRgb> hexColor(const QString& digits) {
    const auto isShort = digits.size() == 3 || digits.size() == 4;
    if (!isShort && digits.size() != 6 && digits.size() != 8) return std::nullopt;
    QString full;
    for (const QChar digit : digits)
        full += isShort ? QString(2, digit) : QString(digit);
    if (full.size() == 6) full += QStringLiteral("ff");
    bool valid = false;
    const quint32 rgba = full.toUInt(&valid, 16);
    if (!valid) return std::nullopt;
    return qRgba(rgba >> 24, (rgba >> 16) & 0xFF, (rgba >> 8) & 0xFF, rgba & 0xFF);
}

// rgb(), rgba(), hsl() and hsla(), with commas or blanks between the numbers.
std::optional<QRgb> functionColor(const QString& value) {
    static const QRegularExpression pattern(QStringLiteral("^(rgb|hsl)a?\\(([^)]*)\\)"));
    const auto match = pattern.match(value);
    if (!match.hasMatch()) return std::nullopt;
    static const QRegularExpression separators(QStringLiteral("[\\s,/]+"));
    const QStringList parts = match.captured(2).split(separators, Qt::SkipEmptyParts);
    if (parts.size() < 3) return std::nullopt;
    const auto number = [](QString part, double percentOf) {
        const bool isPercent = part.endsWith(u'%');
        if (isPercent) part.chop(1);
        const double plain = part.toDouble();
        return isPercent ? plain / 100 * percentOf : plain;
    };
    const double alpha = std::clamp(parts.size() > 3 ? number(parts[3], 1) : 1.0, 0.0, 1.0);
    QColor color;
    if (match.captured(1) == QStringLiteral("rgb")) {
        const auto channel = [&](int i) { return std::clamp(qRound(number(parts[i], 255)), 0, 255); };
        color.setRgb(channel(0), channel(1), channel(2));
    } else {
        const double turn = std::fmod(std::fmod(number(parts[0], 360), 360) + 360, 360) / 360;
        color.setHslF(static_cast<float>(turn), static_cast<float>(std::clamp(number(parts[1], 1), 0.0, 1.0)),
                      static_cast<float>(std::clamp(number(parts[2], 1), 0.0, 1.0)));
    }
    color.setAlphaF(static_cast<float>(alpha));
    return color.rgba();
}

std::optional<QRgb> parseColor(const QString& value) {
    if (value.startsWith(u'#')) return hexColor(value.mid(1).section(u' ', 0, 0));
    if (const auto color = functionColor(value)) return color;
    const QString word = value.section(u' ', 0, 0);
    if (word.isEmpty() || !std::ranges::all_of(word, [](QChar c) { return c.isLetter(); }))
        return std::nullopt;
    const QColor named(word);
    return named.isValid() && word != QStringLiteral("transparent") ? std::optional(named.rgba())
                                                                    : std::nullopt;
}

// Puts the values of variables in place of var(--name) and var(--name, fallback).
QString substitute(QString value, const Variables& variables) {
    static const QRegularExpression pattern(QStringLiteral("var\\(\\s*(--[\\w-]+)\\s*(?:,([^()]*))?\\)"));
    constexpr int deepest = 8; // a variable that names itself would go on for ever
    for (int depth = 0; depth < deepest; ++depth) {
        const auto match = pattern.match(value);
        if (!match.hasMatch()) break;
        value.replace(match.capturedStart(), match.capturedLength(),
                      variables.value(match.captured(1), match.captured(2).trimmed()));
    }
    return value;
}

struct Declaration {
    QString property;
    QString value;
};

std::vector<Declaration> parseDeclarations(const QString& body) {
    std::vector<Declaration> declarations;
    for (const QString& part : body.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype colon = part.indexOf(u':');
        if (colon > 0) declarations.push_back({part.left(colon).trimmed(), part.mid(colon + 1).trimmed()});
    }
    return declarations;
}

Style styleOf(const std::vector<Declaration>& declarations, const Variables& variables) {
    Style style;
    for (const auto& [property, raw] : declarations) {
        const QString value = substitute(raw, variables).toLower();
        if (property == QStringLiteral("color")) {
            if (const auto color = parseColor(value)) style.color = color;
        } else if (property == QStringLiteral("background") ||
                   property == QStringLiteral("background-color")) {
            if (const auto color = parseColor(value)) style.background = color;
        } else if (property == QStringLiteral("font-weight")) {
            style.bold = value.startsWith(QStringLiteral("bold")) || value.toInt() >= 600;
        } else if (property == QStringLiteral("font-style")) {
            style.italic =
                value.startsWith(QStringLiteral("italic")) || value.startsWith(QStringLiteral("oblique"));
        } else if (property.startsWith(QStringLiteral("text-decoration"))) {
            style.underline = value.contains(QStringLiteral("underline"));
        }
    }
    return style;
}

// One compound such as "code.hljs" or ".hljs-title.class_"; nothing where it asks for more than classes.
std::optional<Compound> parseCompound(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^(?:pre|code)?((?:\\.[\\w-]+)*)$"));
    const auto match = pattern.match(text);
    if (!match.hasMatch()) return std::nullopt;
    return Compound{match.captured(1).split(u'.', Qt::SkipEmptyParts)};
}

std::optional<std::vector<Compound>> parseSelector(QString text) {
    text.replace(u'>', QStringLiteral(" > "));
    std::vector<Compound> selector;
    bool isChild = false;
    for (const QString& part : text.simplified().split(u' ', Qt::SkipEmptyParts)) {
        if (part == QStringLiteral(">")) {
            isChild = true;
            continue;
        }
        auto compound = parseCompound(part);
        if (!compound) return std::nullopt;
        compound->isChild = std::exchange(isChild, false) && !selector.empty();
        // A plain "pre" around the code is always there.
        if (!compound->classes.isEmpty()) selector.push_back(*compound);
    }
    return selector.empty() ? std::nullopt : std::optional(selector);
}

struct Block {
    QString selectors;
    QString body;
};

// The blocks of the file at the outermost level, without those of at-rules.
std::vector<Block> blocksOf(QString css) {
    static const QRegularExpression comment(QStringLiteral("/\\*.*?(\\*/|$)"),
                                            QRegularExpression::DotMatchesEverythingOption);
    css.remove(comment);
    std::vector<Block> blocks;
    for (qsizetype at = 0; at < css.size();) {
        const qsizetype open = css.indexOf(u'{', at);
        if (open < 0) break;
        qsizetype close = open + 1;
        for (int depth = 1; close < css.size(); ++close) {
            if (css[close] == u'{') ++depth;
            if (css[close] == u'}' && --depth == 0) break;
        }
        const QString selectors = css.mid(at, open - at).trimmed();
        if (!selectors.startsWith(u'@')) blocks.push_back({selectors, css.mid(open + 1, close - open - 1)});
        at = close + 1;
    }
    return blocks;
}

qsizetype specificity(const std::vector<Compound>& selector) {
    qsizetype classes = 0;
    for (const auto& compound : selector)
        classes += compound.classes.size();
    return classes;
}

} // namespace

std::vector<Rule> parseStyleSheet(const QString& css) {
    const auto blocks = blocksOf(css);
    Variables variables;
    for (const auto& block : blocks)
        for (const auto& [property, value] : parseDeclarations(block.body))
            if (property.startsWith(QStringLiteral("--"))) variables.insert(property, value);

    std::vector<Rule> rules;
    for (const auto& block : blocks) {
        const Style style = styleOf(parseDeclarations(block.body), variables);
        for (const QString& text : block.selectors.split(u','))
            if (auto selector = parseSelector(text)) rules.push_back({std::move(*selector), style});
    }
    std::ranges::stable_sort(rules, {}, [](const Rule& rule) { return specificity(rule.selector); });
    return rules;
}

} // namespace platform::highlight
