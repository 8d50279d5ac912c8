#pragma once

#include "Tessarine/base/Color.h"
#include "Tessarine/textview/TextView.h"
#include "examples/editor/find/BackgroundSearch.h"
#include "examples/editor/find/FindBar.h"
#include "examples/editor/find/FindQuery.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <optional>
#include <stop_token>

namespace tessarine::editor {

// Finds and replaces in one text what its bar asks for. The matches are those of the text as it was when they
// were found: after a change they are looked for anew, and whoever asks for the next one waits for that.
// Borrows view and bar. Main thread.
class FindSession : public QObject {
public:
    FindSession(TextView& view, FindBar& bar, std::shared_ptr<MainExecutor> mainExecutor);

    ~FindSession() override { m_replaceStop.request_stop(); }

    // With what is selected, if it is of one line.
    void open(bool withReplacing);
    void close();

    void findNext() { step(Step::next); }

    void findPrevious() { step(Step::previous); }

    void replace();
    void replaceAll();

    // What happened to the view.
    void textDidChange();
    void selectionDidChange();
    void viewportDidChange();

    void setHighlightColor(const Color& color);

private:
    enum class Step { none, stay, next, previous };

    void search(Step whenFound);
    void finish(const BackgroundSearch::Result& result);
    void step(Step step);
    void selectMatch(std::size_t index);
    std::optional<SearchMatch> selectedMatch() const;
    void finishReplacingAll(const TextSnapshot& text,
                            const std::expected<BatchReplaceSet, SearchError>& found);
    void showCount();
    void highlight();
    TextRange visibleRange() const;

    TextSnapshot text() const { return m_view.document().stringView->snapshot(); }

    TextRange selection() const { return m_view.selectedRange().value_or(TextRange()); }

    TextView& m_view;
    FindBar& m_bar;
    Color m_highlightColor{RGBAColor()};

    std::optional<SearchQuery> m_query; // nothing while there is nothing to look for, or nothing that can be
    FoundMatches m_found;
    bool m_isSearching = false;
    Step m_stepWhenFound = Step::none;
    std::int64_t m_searchStart = 0; // where the caret was when the bar opened: typing goes on from there
    TextRange m_highlighted;        // the stretch whose matches are lit
    std::optional<std::size_t> m_selected; // the match that is not lit

    QTimer m_changeTimer; // some keystrokes make one search
    BackgroundSearch m_search;
    std::stop_source m_replaceStop; // of the page's end, which waits for the work
    BackgroundWork m_replaceWork;
};

} // namespace tessarine::editor
