#include "Quillet/browsing/SnippetOrder.h"

#include "Quillet/browsing/TitleRanks.h"
#include "Quillet/core/UserSettings.h"
#include "platform/foundation/CodePointOrder.h"

#include <algorithm>

namespace quillet {

SnippetOrder::SnippetOrder(std::span<const std::shared_ptr<Snippet>> snippets)
    : m_snippets(snippets.begin(), snippets.end()) {
    m_numbers.reserve(static_cast<qsizetype>(snippets.size()));
    for (Number number = 0; number < m_snippets.size(); ++number)
        m_numbers.insert(m_snippets[number].get(), number);
}

SnippetOrder::Number SnippetOrder::add(Snippet& snippet) {
    const auto known = m_numbers.constFind(&snippet);
    if (known != m_numbers.cend()) return *known;
    const auto number = static_cast<Number>(m_snippets.size());
    m_snippets.push_back(std::static_pointer_cast<Snippet>(snippet.shared_from_this()));
    m_numbers.insert(&snippet, number);
    return number;
}

void SnippetOrder::rank() {
    if (UserSettings::shared().sortIndex.value() != 0)
        rankByTitle();
    else
        rankByDate();
}

void SnippetOrder::rankByTitle() {
    std::vector<QString> keys;
    keys.reserve(m_snippets.size());
    for (const auto& snippet : m_snippets)
        keys.push_back(platform::codePointOrderKey(snippet->title()));
    m_ranks = ranksOf(keys);
}

// The latest first. One moment stands for all absent dates: a clock that moved between two comparisons would
// leave no order at all, and the sort outside of its array.
void SnippetOrder::rankByDate() {
    const auto now = QDateTime::currentDateTimeUtc();
    std::vector<std::pair<qint64, Number>> dates;
    dates.reserve(m_snippets.size());
    for (Number number = 0; number < m_snippets.size(); ++number)
        dates.emplace_back(-m_snippets[number]->lastUpdate().value_or(now).toMSecsSinceEpoch(), number);
    std::ranges::sort(dates);
    m_ranks.resize(dates.size());
    for (std::size_t i = 0; i < dates.size(); ++i) {
        const bool ties = i > 0 && dates[i].first == dates[i - 1].first;
        m_ranks[dates[i].second] = ties ? m_ranks[dates[i - 1].second] : static_cast<Number>(i);
    }
}

void SnippetOrder::sort(std::vector<Number>& numbers) const {
    std::vector<std::pair<Number, Number>> ranked; // with the snippet's number; the rank is read once
    ranked.reserve(numbers.size());
    for (const Number number : numbers)
        ranked.emplace_back(m_ranks[number], number);
    std::ranges::stable_sort(ranked, {}, &std::pair<Number, Number>::first);
    std::ranges::transform(ranked, numbers.begin(), &std::pair<Number, Number>::second);
}

} // namespace quillet
