#include "platform/screens/text/TextMatches.h"

#include <QtCore/QLocale>
#include <QtCore/QStringMatcher>

#include <algorithm>

namespace platform {

namespace {

QString grouped(std::size_t count) {
    return QLocale(QLocale::English).toString(static_cast<qulonglong>(count));
}

} // namespace

TextMatches::TextMatches(const QString& text, const Query& query)
    : m_length(static_cast<int>(query.text.size())) {
    if (query.text.isEmpty()) return;
    const QStringMatcher matcher(query.text, query.caseSensitivity);
    for (qsizetype at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + m_length)) {
        m_isCapped = m_starts.size() == mostCounted;
        if (m_isCapped) break;
        m_starts.push_back(static_cast<int>(at));
    }
}

QString TextMatches::countText(Selection selection) const {
    if (isEmpty()) return QStringLiteral("No results");
    const QString count = grouped(m_starts.size()) + (m_isCapped ? QStringLiteral("+") : QString());
    const auto current = std::ranges::lower_bound(m_starts, selection.start);
    const bool isOne = current != m_starts.end() && *current == selection.start &&
                       selection.limit - selection.start == m_length;
    if (isOne)
        return QStringLiteral("%1 of %2")
            .arg(grouped(static_cast<std::size_t>(current - m_starts.begin()) + 1), count);
    return m_starts.size() == 1 ? QStringLiteral("1 result") : QStringLiteral("%1 results").arg(count);
}

std::span<const int> TextMatches::touching(int start, int limit) const {
    const auto first = std::ranges::upper_bound(m_starts, start - m_length);
    return {first, std::lower_bound(first, m_starts.end(), limit)};
}

std::optional<int> TextMatches::firstFrom(int location) const {
    const auto found = std::ranges::lower_bound(m_starts, location);
    return found == m_starts.end() ? std::nullopt : std::optional(*found);
}

std::optional<int> TextMatches::lastBefore(int location) const {
    const auto behind = std::ranges::upper_bound(m_starts, location - m_length);
    return behind == m_starts.begin() ? std::nullopt : std::optional(*std::prev(behind));
}

void TextMatches::edit(int position, int removed, int added) {
    const auto first = std::ranges::upper_bound(m_starts, position - m_length);
    const auto behind = std::lower_bound(first, m_starts.end(), position + removed);
    std::for_each(behind, m_starts.end(), [&](int& start) { start += added - removed; });
    m_starts.erase(first, behind);
}

} // namespace platform
