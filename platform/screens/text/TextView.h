#pragma once

#include "platform/foundation/AttributedString.h"
#include "platform/screens/text/LineBreaks.h"
#include "platform/screens/text/LineColours.h"
#include "platform/screens/text/TextZoom.h"

#include <QtGui/QTextBlock>
#include <QtWidgets/QPlainTextEdit>

#include <vector>

class QGestureEvent;

namespace platform {

// A plain multi-line text view that gives back every text exactly as it got it: NUL, lone surrogates, all
// kinds of line breaks. A line that the user adds ends as most lines of the text do, and begins with the same
// blanks as the line before it.
//
// Ctrl with the wheel or with plus, minus and zero, and a pinch, zoom for the life of the view. A text file
// that is dropped replaces the text, as one step that can be undone.
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

    // As setText(), but as one step of the undo history. Undone, the breaks of the lines are the old ones
    // again.
    void replaceText(const QString& text);

    // The text with every line break as one '\n', unit for unit what is on screen.
    QString displayText() const;

    // Of a copy of the document's raw text, which is had at the cost of the copy and may be given to any
    // thread.
    static QString displayText(QString rawText);

    // Colours the text. A line gets its colours when it is painted, so this costs nothing but the painting of
    // what is in view. Neither the caret nor the undo history nor the text changes. The colours move with the
    // text until the next ones are set; setText() and replaceText() drop them.
    void setColours(LineColours colours);
    // The same from runs in units of displayText(); what lies outside of it is left out. Walks the text.
    void setRuns(const std::vector<AttributeRun>& runs);

    bool hasColours() const { return !m_colours.isEmpty(); }

    // The font at 100 %; tabs are four of its blanks wide.
    void setCodeFont(const QFont& font);

    // Keeps so many points of the text's own background below it.
    void setBottomInset(int points);

Q_SIGNALS:
    // Why what was dropped did not come in, as a sentence for the user.
    void dropRefused(const QString& reason);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    // All breaks of the text before and after a replaceText(), and where it stands in the undo history.
    struct Replacement {
        int stepsBefore = 0;
        int stepsAfter = 0;
        std::vector<LineBreak> before;
        std::vector<LineBreak> after;
    };

    // A place in the text, and where in the viewport it is.
    struct Anchor {
        QTextBlock block;
        QPointF at;
        qreal top = 0; // of the block
    };

    void setBreaks(std::vector<LineBreak> breaks);
    void forgetSteps();
    void takeChange(int position, int removed, int added);
    void trackBreaks(std::size_t first, std::size_t gone, std::size_t fresh);
    bool restoreBreaks();
    void trackColours(int start, int limit, std::size_t gone);
    void applyColours(const QTextBlock& block);
    void paintPlaceholder(QPainter& painter) const;

    void breakLine();

    void zoom(QPointF at, const TextZoom& zoom);
    void zoomAtCaret(const TextZoom& zoom);
    Anchor anchorAt(QPointF at) const;
    void keepInPlace(const Anchor& anchor, qreal growth);
    bool pinch(QGestureEvent& event);
    void showCodeFont();

    void answerDrag(QDropEvent& event) const;
    void dropFiles(const QList<QUrl>& urls);

    std::vector<LineBreak> m_breaks; // one behind each block but the last
    LineBreak m_newBreak = LineBreak::Lf;
    bool m_replacing = false;
    std::vector<Replacement> m_replacements; // that the undo history may still reach
    int m_steps = 0;                         // of the undo history, before the last change
    LineColours m_colours;
    QFont m_codeFont; // at 100 %
    TextZoom m_zoom;
};

} // namespace platform
