#pragma once

#include "platform/foundation/Timer.h"
#include "platform/screens/text/TextMatches.h"
#include "platform/screens/text/TextView.h"

#include <QtGui/QTextCursor>
#include <QtWidgets/QWidget>

#include <vector>

class QBoxLayout;
class QLabel;
class QLineEdit;

namespace platform {

class SymbolButton;

// Finds a literal text in a text view: typing finds from the caret on, Return, F3 and Ctrl+G the next match,
// with Shift the one before, around the ends; these work while this or the text view has the focus. Matches
// in view are marked. Escape closes the bar and leaves the match selected. Never changes the text. While the
// text is typed into, it is searched anew only when that has rested. Hidden until it is opened; main thread.
class FindBar : public QWidget {
    Q_OBJECT

public:
    // `view` outlives this.
    explicit FindBar(TextView& view, QWidget* parent = nullptr);

    // Takes what is selected, if that is part of one line, as what to look for.
    void open();
    void close();

    QLineEdit& field() { return *m_field; }

    // As TextMatches tells it; empty while nothing is looked for.
    QString countText() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Way { Forward, Backward };

    // What a match was found beyond.
    enum class Wrap { None, End, Start };

    struct Found {
        int start = 0;
        Wrap wrap = Wrap::None;
    };

    void makeButtons(QBoxLayout& row);
    void watchView();
    TextMatches::Query query() const;
    void queryChanged();
    void textEdited(int position, int removed, int added);
    void search();
    void findNext(Way way);
    std::optional<Found> find(Way way, int from) const;
    std::optional<Found> findUncounted(Way way, int from) const;
    void select(const Found& found);
    void showCount();
    std::pair<int, int> rangeInView() const;
    std::vector<int> matchesIn(int start, int limit) const;
    void markVisible();
    bool obey(const QKeyEvent& event);
    void arrange();

    TextView* m_view;
    QLineEdit* m_field;
    QWidget* m_tail;
    QLabel* m_count;
    SymbolButton* m_matchCase;
    TextMatches m_matches;
    Wrap m_wrap = Wrap::None;
    QTextCursor m_origin; // where the search of what is typed begins
    Timer m_idle;         // searches anew
};

} // namespace platform
