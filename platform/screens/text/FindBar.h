#pragma once

#include "platform/foundation/Timer.h"
#include "platform/screens/text/TextView.h"

#include <QtWidgets/QWidget>

#include <vector>

class QLabel;
class QLineEdit;

namespace platform {

class SymbolButton;

// Finds a literal text in a text view: typing finds from the caret on, Return, F3 and Ctrl+G the next match,
// with Shift the one before, around the ends. Matches in view are marked. Escape closes the bar and leaves
// the match selected. Never changes the text. Hidden until it is opened; main thread.
class FindBar : public QWidget {
    Q_OBJECT

public:
    // `view` outlives this.
    explicit FindBar(TextView& view, QWidget* parent = nullptr);

    // Takes what is selected, if that is part of one line, as what to look for.
    void open();
    void close();

    QLineEdit& field() { return *m_field; }

    // Such as "3 of 17".
    QString countText() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    enum class Way { Forward, Backward };

    bool keyPressed(const QKeyEvent& event, bool isInField);
    Qt::CaseSensitivity caseSensitivity() const;
    void queryChanged();
    void find(Way way, int from);
    void findNext(Way way);
    void search();
    void showCount();
    void markVisible();

    TextView* m_view;
    QLineEdit* m_field;
    QLabel* m_count;
    SymbolButton* m_matchCase;
    std::vector<int> m_matches; // where they start, ascending, at most as many as are counted
    int m_anchor = 0;           // where the search of what is typed begins
    Timer m_idle;               // searches anew when the text has rested
};

} // namespace platform
