#include "examples/editor/find/FindSession.h"

#include "Tessarine/document/search/MatchFinder.h"
#include "Tessarine/document/search/ReplaceAll.h"
#include "Tessarine/view/QtConversions.h"

#include <QtCore/QLocale>

#include <algorithm>
#include <chrono>

namespace tessarine::editor {

namespace {

constexpr std::chrono::milliseconds changeDelay{60};
constexpr std::int64_t longestSuggestion = 200;  // code units of a selection that is worth looking for
constexpr std::int64_t highlightMargin = 20'000; // code units lit on either side of what is in view
constexpr std::size_t highlightLimit = 5'000;    // of a text that consists of matches
constexpr double highlightCornerRadius = 2;

QString reason(const SearchError& error) {
    if (error.kind == SearchError::Kind::invalidPattern) return FindBar::tr("Not a regular expression");
    return FindBar::tr("The pattern takes too long");
}

} // namespace

FindSession::FindSession(TextView& view, FindBar& bar, std::shared_ptr<MainExecutor> mainExecutor)
    : m_view(view)
    , m_bar(bar)
    , m_search(mainExecutor)
    , m_replaceWork("replace", mainExecutor) {
    m_changeTimer.setSingleShot(true);
    m_changeTimer.setInterval(changeDelay);
    connect(&m_changeTimer, &QTimer::timeout, this, [this] { search(m_stepWhenFound); });
    connect(&bar, &FindBar::optionsChanged, this, [this] { search(Step::stay); });
    connect(&bar, &FindBar::nextRequested, this, &FindSession::findNext);
    connect(&bar, &FindBar::previousRequested, this, &FindSession::findPrevious);
    connect(&bar, &FindBar::replaceRequested, this, &FindSession::replace);
    connect(&bar, &FindBar::replaceAllRequested, this, &FindSession::replaceAll);
    connect(&bar, &FindBar::closed, this, &FindSession::close);
}

void FindSession::open(bool withReplacing) {
    const TextRange selected = selection();
    m_searchStart = selected.location;
    QString suggestion;
    if (selected.length > 0 && selected.length <= longestSuggestion) suggestion = toQt(m_view.text(selected));
    if (suggestion.contains(u'\n') || suggestion.contains(u'\r')) suggestion.clear();
    m_bar.open(suggestion, withReplacing);
}

void FindSession::close() {
    m_search.cancel();
    m_changeTimer.stop();
    m_isSearching = false;
    m_query.reset();
    m_found = {};
    m_bar.hide();
    highlight();
}

void FindSession::search(Step whenFound) {
    m_changeTimer.stop();
    m_search.cancel();
    m_isSearching = false;
    m_query.reset();
    const auto query = searchQuery(m_bar.options());
    if (!query || query->text.empty()) {
        m_found = {};
        m_bar.showResult(query ? QString() : query.error(), FindBar::Mood::warning);
        highlight();
        return;
    }
    m_query = *query;
    m_isSearching = true;
    m_stepWhenFound = whenFound;
    m_search.start(text(), *m_query, [this](const BackgroundSearch::Result& result) { finish(result); });
}

void FindSession::finish(const BackgroundSearch::Result& result) {
    m_isSearching = false;
    m_found = result.value_or(FoundMatches());
    m_highlighted = {};
    const Step whenFound = std::exchange(m_stepWhenFound, Step::none);
    if (!result)
        m_bar.showResult(reason(result.error()), FindBar::Mood::warning);
    else
        step(whenFound);
    highlight();
    if (result) showCount();
}

void FindSession::step(Step step) {
    if (m_bar.isHidden() && m_bar.options().text.isEmpty()) return;
    if (!m_query) return search(step); // the bar was closed, its text is still there
    if (m_isSearching || m_changeTimer.isActive()) {
        m_stepWhenFound = step;
        return;
    }
    std::optional<std::size_t> index;
    if (step == Step::stay) index = m_found.matches.nextFrom(m_searchStart);
    if (step == Step::next) index = m_found.matches.nextFrom(selection().limit());
    if (step == Step::previous) index = m_found.matches.previousTo(selection().location);
    if (index) selectMatch(*index);
    if (index && step != Step::stay) m_searchStart = selection().location;
}

void FindSession::selectMatch(std::size_t index) {
    const TextRange range = m_found.matches.at(index);
    m_view.setSelectedRange(range);
    m_view.scrollRangeToVisible(range);
}

// With its groups, which the list does not keep. Nothing where the selection is no match.
std::optional<SearchMatch> FindSession::selectedMatch() const {
    if (!m_query) return std::nullopt;
    auto finder = MatchFinder::create(text(), *m_query, selection().location);
    if (!finder) return std::nullopt;
    const auto match = finder->next();
    if (!match || !*match || (*match)->range != selection()) return std::nullopt;
    return **match;
}

void FindSession::replace() {
    const auto replacement = replacementOf(m_bar.options(), m_bar.replacement());
    if (!replacement) return m_bar.showResult(replacement.error(), FindBar::Mood::warning);
    if (const auto match = selectedMatch()) m_view.replace(match->range, replacement->string(*match, text()));
    findNext();
}

void FindSession::replaceAll() {
    const auto replacement = replacementOf(m_bar.options(), m_bar.replacement());
    if (!replacement) return m_bar.showResult(replacement.error(), FindBar::Mood::warning);
    if (!m_query || !m_view.isEditable()) return;
    m_replaceWork.start(
        this,
        [text = text(), query = *m_query, replacement = *replacement, stop = m_replaceStop.get_token()] {
            return std::pair(text, replacementsOfAll(text, query, replacement, stop));
        },
        [this](const auto& result) { finishReplacingAll(result.first, result.second); });
}

void FindSession::finishReplacingAll(const TextSnapshot& searched,
                                     const std::expected<BatchReplaceSet, SearchError>& found) {
    if (!found) return m_bar.showResult(reason(found.error()), FindBar::Mood::warning);
    // The ranges are those of the text that was searched.
    if (searched != text()) return m_bar.showResult(tr("The text has changed"), FindBar::Mood::warning);
    m_view.replaceText(*found);
    search(Step::none);
}

void FindSession::textDidChange() {
    if (m_bar.isHidden()) return;
    m_search.cancel();
    m_changeTimer.start();
}

void FindSession::selectionDidChange() {
    if (m_bar.isHidden() || !m_query || m_isSearching || m_changeTimer.isActive()) return;
    showCount();
    if (m_found.matches.indexOf(selection()) != m_selected) highlight();
}

void FindSession::showCount() {
    const QLocale locale;
    const std::size_t count = m_found.matches.count();
    if (count == 0) return m_bar.showResult(tr("No matches"), FindBar::Mood::warning);
    const QString total =
        locale.toString(static_cast<qulonglong>(count)) + (m_found.isAll ? QString() : QStringLiteral("+"));
    const auto index = m_found.matches.indexOf(selection());
    const QString text = index
                             ? tr("%1 of %2").arg(locale.toString(static_cast<qulonglong>(*index + 1)), total)
                             : tr("%1 matches").arg(total);
    m_bar.showResult(text, FindBar::Mood::neutral);
}

void FindSession::viewportDidChange() {
    // The text view moves what is lit; the list is that of another text until the search is done.
    const bool isUpToDate = !m_isSearching && !m_changeTimer.isActive();
    if (m_found.matches.isEmpty() || !isUpToDate) return;
    const TextRange visible = visibleRange();
    const bool isLit = visible.location >= m_highlighted.location && visible.limit() <= m_highlighted.limit();
    if (!isLit) highlight();
}

TextRange FindSession::visibleRange() const {
    const Rect bounds = m_view.scrollView()->bounds();
    const std::int64_t first = m_view.closestIndex({bounds.x, bounds.y});
    const std::int64_t limit = m_view.closestIndex({bounds.x + bounds.width, bounds.y + bounds.height});
    return {first, std::max(first, limit) - first};
}

// The selected match shows by the selection alone: the two colours on top of each other are neither.
void FindSession::highlight() {
    const TextRange visible = visibleRange();
    const std::int64_t first = std::max<std::int64_t>(0, visible.location - highlightMargin);
    const std::int64_t limit =
        std::min(m_view.document().stringView->length(), visible.limit() + highlightMargin);
    m_highlighted = {first, limit - first};
    m_selected = m_found.matches.indexOf(selection());
    HighlightNavigationController::Ranges ranges;
    for (const TextRange& range : m_found.matches.within(m_highlighted)) {
        if (ranges.size() == highlightLimit) break;
        if (range == selection()) continue;
        ranges.push_back(std::make_shared<const HighlightedRange>(HighlightedRange{
            .range = range, .color = m_highlightColor, .cornerRadius = highlightCornerRadius}));
    }
    m_view.setHighlightedRanges(ranges);
}

void FindSession::setHighlightColor(const Color& color) {
    m_highlightColor = color;
    highlight();
}

} // namespace tessarine::editor
