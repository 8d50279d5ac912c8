#include "Tessarine/view/RowText.h"

#include "Tessarine/view/QtConversions.h"

#include <algorithm>
#include <span>
#include <unicode/utf16.h>

namespace tessarine {

namespace {

constexpr double defaultTabInterval = 40;

bool isRightToLeft(char32_t character) {
    switch (QChar::direction(character)) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirAN:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
    case QChar::DirFSI:
        return true;
    default:
        return false;
    }
}

constexpr char16_t firstRightToLeftUnit = 0x0590;

bool hasRightToLeftCharacters(const QString& text) {
    if (std::ranges::none_of(text, [](QChar unit) { return unit >= firstRightToLeftUnit; })) return false;
    const std::span units(text.utf16(), static_cast<std::size_t>(text.size()));
    for (std::size_t at = 0; at < units.size();) {
        char32_t character = 0;
        U16_NEXT(units, at, units.size(), character);
        if (isRightToLeft(character)) return true;
    }
    return false;
}

bool hasPrintableUnits(QStringView text) {
    while (text.endsWith(u'\n') || text.endsWith(u'\r'))
        text.chop(1);
    return std::ranges::all_of(text, [](QChar unit) { return unit >= u' ' && unit <= u'~'; });
}

// A line break takes no room, but of all of them the toolkit knows that of CR and LF only. And it would look
// for an object that nobody has.
QChar shown(QChar unit) {
    if (unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator || unit == u'\u0085') return u'\n';
    return unit == QChar::ObjectReplacementCharacter ? QChar(QChar::ReplacementCharacter) : unit;
}

} // namespace

RowText RowText::of(const AttributedString& string, const TextRange& range, RowStyles& styles) {
    RowText row;
    row.text = toQt(string.substring(range));
    std::ranges::transform(row.text, row.text.begin(), shown);
    row.hasRightToLeft = hasRightToLeftCharacters(row.text);
    const auto runs = string.runs(range);
    row.runs.reserve(runs.size()); // so that no room is left behind them
    for (const auto& run : runs) {
        if (row.runs.empty())
            row.tabInterval = run.attributes.defaultTabInterval.value_or(defaultTabInterval);
        auto style = styles.styleOf(run.attributes);
        if (row.runs.empty() || row.runs.back().style != style) row.runs.push_back({0, std::move(style)});
        row.runs.back().length += static_cast<int>(run.range.length);
    }
    row.hasEvenUnits = hasPrintableUnits(row.text) && std::ranges::all_of(row.runs, [](const Run& run) {
                           return run.style->metrics.unitAdvance.has_value();
                       });
    return row;
}

RowText RowText::withRunsOfFaces() const {
    RowText fewer = *this;
    fewer.runs.clear();
    for (const Run& run : runs) {
        if (!fewer.runs.empty() && fewer.runs.back().style->hasFaceOf(*run.style))
            fewer.runs.back().length += run.length;
        else
            fewer.runs.push_back(run);
    }
    return fewer;
}

RowText RowText::part(int start, int length) const {
    RowText shorter{.text = text.mid(start, length),
                    .runs = {},
                    .tabInterval = tabInterval,
                    .isRightToLeft = isRightToLeft,
                    .hasRightToLeft = hasRightToLeft,
                    .hasEvenUnits = hasEvenUnits};
    const int limit = start + static_cast<int>(shorter.text.size());
    int runStart = 0;
    for (const Run& run : runs) {
        const int common = std::min(runStart + run.length, limit) - std::max(runStart, start);
        if (common > 0) shorter.runs.push_back({common, run.style});
        runStart += run.length;
    }
    return shorter;
}

} // namespace tessarine
