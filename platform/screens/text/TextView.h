#pragma once

#include "platform/foundation/AttributedString.h"
#include "platform/screens/text/LineBreaks.h"

#include <QtWidgets/QPlainTextEdit>

#include <vector>

namespace platform {

// A plain multi-line text view that gives back every text exactly as it got it: NUL, lone surrogates, all
// kinds of line breaks. A line that the user adds ends as most lines of the text do.
//
// Locations are UTF-16 code units of displayText(). Main thread.
class TextView : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit TextView(QWidget* parent = nullptr);

    // Replaces everything; the caret goes to the start and the undo history is emptied.
    void setText(const QString& text);
    QString text() const;

    // As setText(), for a text that changed under the user: only what differs is replaced, so that the caret
    // and what is in view stay where they are in the text. The undo history is emptied: an undo must not take
    // back what somebody else wrote.
    void updateText(const QString& text);

    // The text with every line break as one '\n', unit for unit what is on screen.
    QString displayText() const;

    // Colours the text. Runs are in units of displayText(); what lies outside of it is left out. Neither the
    // caret nor the undo history nor the text changes, and lines that look the same are not laid out again.
    void setRuns(const std::vector<AttributeRun>& runs);

private:
    void trackBreaks(int position, int removed, int added);

    std::vector<LineBreak> m_breaks; // one behind each block but the last
    LineBreak m_newBreak = LineBreak::Lf;
    bool m_replacing = false;
};

} // namespace platform
