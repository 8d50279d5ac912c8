#include "platform/screens/text/TextView.h"

#include "platform/foundation/LineDiff.h"
#include "platform/foundation/TextFile.h"
#include "platform/screens/text/TextBlockPainting.h"

#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QNativeGestureEvent>
#include <QtGui/QPainter>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QGestureEvent>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <ranges>

namespace platform {

namespace {

// Where two texts begin and cease to differ: how much is the same in front, and how much behind. Halves of a
// surrogate pair are not told apart.
struct CommonEnds {
    qsizetype front = 0;
    qsizetype back = 0;
};

CommonEnds commonEnds(QStringView a, QStringView b) {
    CommonEnds ends;
    ends.front = std::ranges::mismatch(a, b).in1 - a.begin();
    if (ends.front > 0 && a[ends.front - 1].isHighSurrogate()) --ends.front;
    const qsizetype most = std::min(a.size(), b.size()) - ends.front;
    while (ends.back < most && a[a.size() - 1 - ends.back] == b[b.size() - 1 - ends.back])
        ++ends.back;
    if (ends.back > 0 && a[a.size() - ends.back].isLowSurrogate()) --ends.back;
    return ends;
}

// Some lines of a text.
struct TextRange {
    QStringView text;
    qsizetype start = 0; // of the whole text
};

TextRange rangeOf(const QString& text, const Lines& lines, qsizetype first, qsizetype limit) {
    const auto offsetOf = [&](qsizetype line) {
        const auto index = static_cast<std::size_t>(line);
        return index < lines.size() ? lines[index].data() - text.data() : text.size();
    };
    const qsizetype start = offsetOf(first);
    return {QStringView(text).sliced(start, offsetOf(limit) - start), start};
}

// Touches no character that is the same in both.
void replaceDifference(QTextCursor& cursor, const TextRange& from, const TextRange& to) {
    const auto same = commonEnds(from.text, to.text);
    cursor.setPosition(static_cast<int>(from.start + same.front));
    cursor.setPosition(static_cast<int>(from.start + from.text.size() - same.back), QTextCursor::KeepAnchor);
    cursor.insertText(to.text.sliced(same.front, to.text.size() - same.front - same.back).toString());
}

constexpr int notch = 120;    // of a wheel, in eighths of a degree
constexpr int caretWidth = 2; // points

// Whether the key, with Ctrl, is one that zooms.
bool turnByKey(TextZoom& zoom, int key) {
    if (key == Qt::Key_Plus || key == Qt::Key_Equal)
        zoom.turn(notch);
    else if (key == Qt::Key_Minus)
        zoom.turn(-notch);
    else if (key == Qt::Key_0)
        zoom.reset();
    else
        return false;
    return true;
}

// What a line begins with, of the part before the caret.
QString indentBefore(const QTextCursor& caret) {
    const QString line = caret.block().text().left(caret.positionInBlock());
    const auto text =
        std::ranges::find_if_not(line, [](QChar unit) { return unit == u' ' || unit == u'\t'; });
    return line.left(text - line.begin());
}

bool hasFiles(const QMimeData& data) {
    return std::ranges::any_of(data.urls(), &QUrl::isLocalFile);
}

QString reasonOf(TextFileError error, const QString& name) {
    switch (error) {
    case TextFileError::Unreadable:
        return QStringLiteral("“%1” cannot be read.").arg(name);
    case TextFileError::NotAFile:
        return QStringLiteral("“%1” is not a file.").arg(name);
    case TextFileError::TooLarge:
        return QStringLiteral("“%1” is larger than 16 MB.").arg(name);
    case TextFileError::Binary:
        return QStringLiteral("“%1” is not a text file.").arg(name);
    }
    return {};
}

} // namespace

TextView::TextView(QWidget* parent)
    : QPlainTextEdit(parent)
    , m_codeFont(font()) {
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(false);
    setCursorWidth(caretWidth);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true); // what the margins of the viewport leave
    viewport()->grabGesture(Qt::PinchGesture);
    connect(document(), &QTextDocument::contentsChange, this, &TextView::takeChange);
}

void TextView::setText(const QString& text) {
    auto split = splitBreaks(text);
    m_colours = {};
    m_replacing = true;
    setPlainText(split.text);
    m_replacing = false;
    setBreaks(std::move(split.breaks));
    forgetSteps();
}

void TextView::updateText(const QString& text) {
    auto split = splitBreaks(text);
    const QString shown = displayText();
    const Lines from = splitLines(shown);
    const Lines to = splitLines(split.text);
    const auto hunks = diffLines(from, to);
    const QTextBlock top = firstVisibleBlock();
    QTextCursor cursor(document());
    m_replacing = true;
    cursor.beginEditBlock();
    // From the end, so that what is still to be replaced lies where it lay.
    for (const auto& hunk : std::views::reverse(hunks))
        replaceDifference(cursor, rangeOf(shown, from, hunk.baseStart, hunk.baseLimit),
                          rangeOf(split.text, to, hunk.start, hunk.limit));
    cursor.endEditBlock();
    document()->clearUndoRedoStacks();
    m_replacing = false;
    setBreaks(std::move(split.breaks));
    forgetSteps();
    if (top.isValid()) verticalScrollBar()->setValue(top.firstLineNumber());
}

void TextView::replaceText(const QString& text) {
    auto split = splitBreaks(text);
    Replacement replacement{m_steps, 0, m_breaks, split.breaks};
    m_colours = {};
    m_replacing = true;
    QTextCursor cursor(document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(split.text);
    m_replacing = false;
    setBreaks(std::move(split.breaks));
    moveCursor(QTextCursor::Start);
    replacement.stepsAfter = m_steps;
    if (replacement.stepsAfter > replacement.stepsBefore) m_replacements.push_back(std::move(replacement));
}

QString TextView::text() const {
    return joinBreaks(displayText(), m_breaks);
}

QString TextView::displayText() const {
    return displayText(document()->toRawText()); // toPlainText() would turn no-break spaces into spaces
}

QString TextView::displayText(QString rawText) {
    return rawText.replace(QChar::ParagraphSeparator, QChar::LineFeed);
}

void TextView::setBreaks(std::vector<LineBreak> breaks) {
    m_newBreak = dominantBreak(breaks);
    m_breaks = std::move(breaks);
}

void TextView::forgetSteps() {
    m_replacements.clear();
    m_steps = document()->availableUndoSteps();
}

void TextView::takeChange(int position, int /*removed*/, int added) {
    // The signal may count the end of the document in; only how many lines came and went matters here.
    const int last = document()->characterCount() - 1;
    const int start = std::min(position, last);
    const int limit = std::min(position + added, last);
    const auto first = static_cast<std::size_t>(document()->findBlock(start).blockNumber());
    const auto now = static_cast<std::size_t>(document()->blockCount() - 1);
    const std::size_t fresh = static_cast<std::size_t>(document()->findBlock(limit).blockNumber()) - first;
    const std::size_t gone = m_breaks.size() + fresh - now;
    if (hasColours()) trackColours(start, limit, gone);
    if (!m_replacing && !restoreBreaks()) trackBreaks(first, gone, fresh);
    // Steps that were undone are gone as soon as something else is done.
    if (!document()->isRedoAvailable())
        std::erase_if(m_replacements, [this](const Replacement& each) { return each.stepsAfter > m_steps; });
    m_steps = document()->availableUndoSteps();
}

void TextView::trackBreaks(std::size_t first, std::size_t gone, std::size_t fresh) {
    const auto at = m_breaks.begin() + static_cast<std::ptrdiff_t>(first);
    // A break that was removed and typed again in one step keeps its kind.
    const std::size_t kept = std::min(gone, fresh);
    if (gone > kept)
        m_breaks.erase(at + static_cast<std::ptrdiff_t>(kept), at + static_cast<std::ptrdiff_t>(gone));
    else
        m_breaks.insert(at + static_cast<std::ptrdiff_t>(kept), fresh - kept, m_newBreak);
}

// Whether the change was the undoing or redoing of a whole replacement.
bool TextView::restoreBreaks() {
    const int steps = document()->availableUndoSteps();
    const auto lines = static_cast<std::size_t>(document()->blockCount());
    for (const Replacement& each : m_replacements) {
        const bool isUndo = m_steps == each.stepsAfter && steps == each.stepsBefore;
        const bool isRedo = m_steps == each.stepsBefore && steps == each.stepsAfter;
        const auto& breaks = isUndo ? each.before : each.after;
        if ((!isUndo && !isRedo) || breaks.size() + 1 != lines) continue;
        setBreaks(breaks);
        return true;
    }
    return false;
}

void TextView::trackColours(int start, int limit, std::size_t gone) {
    QTextBlock block = document()->findBlock(start);
    LineEdit edit;
    edit.line = static_cast<std::size_t>(block.blockNumber());
    edit.gone = gone;
    edit.column = start - block.position();
    std::vector<int> lengths;
    for (; block.isValid() && block.position() <= limit; block = block.next()) {
        lengths.push_back(block.length() - 1);
        edit.tail = block.position() + block.length() - 1 - limit;
    }
    edit.lengths = lengths;
    m_colours.edit(edit);
}

void TextView::setColours(LineColours colours) {
    m_colours = std::move(colours);
    viewport()->update();
}

void TextView::setRuns(const std::vector<AttributeRun>& runs) {
    setColours(LineColours(displayText(), runs));
}

void TextView::applyColours(const QTextBlock& block) {
    QTextLayout& layout = *block.layout();
    if (!layout.preeditAreaText().isEmpty()) return; // an input method has formats of its own there
    const auto formats = m_colours.formats(static_cast<std::size_t>(block.blockNumber()));
    if (formats == layout.formats()) return;
    layout.setFormats(formats);
    // The document keeps what changed until the layout is told. It would ask for another painting.
    const QSignalBlocker quiet(document()->documentLayout());
    document()->markContentsDirty(block.position(), block.length());
}

void TextView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    auto context = getPaintContext();
    context.clip = event->rect();
    QPointF at = contentOffset();
    for (QTextBlock block = firstVisibleBlock(); block.isValid() && at.y() <= event->rect().bottom();
         block = block.next()) {
        applyColours(block);
        const qreal height = blockBoundingRect(block).height();
        if (at.y() + height >= event->rect().top())
            paintTextBlock(painter, block, at, context, textCursor(), cursorWidth());
        at.ry() += height;
    }
    if (document()->isEmpty()) paintPlaceholder(painter);
}

void TextView::paintPlaceholder(QPainter& painter) const {
    if (!document()->firstBlock().layout()->preeditAreaText().isEmpty()) return;
    const int margin = qRound(document()->documentMargin());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, 0), Qt::AlignTop | Qt::TextWordWrap,
                     placeholderText());
}

void TextView::setCodeFont(const QFont& font) {
    m_codeFont = font;
    showCodeFont();
}

void TextView::setBottomInset(int points) {
    QMargins margins = viewportMargins();
    margins.setBottom(points);
    setViewportMargins(margins);
}

void TextView::showCodeFont() {
    setFont(m_zoom.applied(m_codeFont));
    setTabStopDistance(4 * QFontMetricsF(font()).horizontalAdvance(u' '));
}

void TextView::zoom(QPointF at, const TextZoom& zoom) {
    const Anchor anchor = anchorAt(at);
    const qreal before = QFontMetricsF(font()).height();
    m_zoom = zoom;
    showCodeFont();
    keepInPlace(anchor, QFontMetricsF(font()).height() / before);
}

void TextView::zoomAtCaret(const TextZoom& to) {
    const QPoint caret = cursorRect().center();
    zoom(viewport()->rect().contains(caret) ? caret : QPoint(), to);
}

TextView::Anchor TextView::anchorAt(QPointF at) const {
    const QTextBlock block = cursorForPosition(at.toPoint()).block();
    return {block, at, blockBoundingGeometry(block).translated(contentOffset()).top()};
}

// The view scrolls by whole lines, so in place means to half a line.
void TextView::keepInPlace(const Anchor& anchor, qreal growth) {
    const qreal lineHeight = blockBoundingRect(anchor.block).height() / std::max(1, anchor.block.lineCount());
    const qreal top = anchor.at.y() - (anchor.at.y() - anchor.top) * growth;
    verticalScrollBar()->setValue(anchor.block.firstLineNumber() - qRound(top / lineHeight));
    QScrollBar& bar = *horizontalScrollBar();
    bar.setValue(qRound((bar.value() + anchor.at.x()) * growth - anchor.at.x()));
}

bool TextView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Gesture) return pinch(*static_cast<QGestureEvent*>(event));
    if (event->type() != QEvent::NativeGesture) return QPlainTextEdit::viewportEvent(event);
    const auto& gesture = *static_cast<QNativeGestureEvent*>(event);
    if (gesture.gestureType() != Qt::ZoomNativeGesture) return false;
    TextZoom to = m_zoom;
    to.multiply(1 + gesture.value());
    zoom(gesture.position(), to);
    return true;
}

bool TextView::pinch(QGestureEvent& event) {
    auto* pinch = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
    if (!pinch) return QPlainTextEdit::viewportEvent(&event);
    TextZoom to = m_zoom;
    to.multiply(pinch->scaleFactor());
    zoom(viewport()->mapFromGlobal(pinch->hotSpot()), to);
    event.accept(pinch);
    return true;
}

void TextView::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QPlainTextEdit::wheelEvent(event);
        return;
    }
    TextZoom to = m_zoom;
    to.turn(event->angleDelta().y());
    zoom(event->position(), to);
    event->accept();
}

void TextView::keyPressEvent(QKeyEvent* event) {
    const auto modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    TextZoom to = m_zoom;
    if (modifiers == Qt::ControlModifier && turnByKey(to, event->key()))
        zoomAtCaret(to);
    else if (event->matches(QKeySequence::InsertParagraphSeparator) && !isReadOnly())
        breakLine();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void TextView::breakLine() {
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart());
    insertPlainText(u'\n' + indentBefore(cursor));
    ensureCursorVisible();
}

void TextView::dragEnterEvent(QDragEnterEvent* event) {
    if (!hasFiles(*event->mimeData()))
        QPlainTextEdit::dragEnterEvent(event);
    else
        answerDrag(*event);
}

void TextView::dragMoveEvent(QDragMoveEvent* event) {
    if (!hasFiles(*event->mimeData()))
        QPlainTextEdit::dragMoveEvent(event);
    else
        answerDrag(*event);
}

void TextView::dropEvent(QDropEvent* event) {
    if (!hasFiles(*event->mimeData())) {
        QPlainTextEdit::dropEvent(event);
        return;
    }
    answerDrag(*event);
    if (event->isAccepted()) dropFiles(event->mimeData()->urls());
}

// A file is copied, whatever the other side would like: it must not delete it.
void TextView::answerDrag(QDropEvent& event) const {
    event.setDropAction(Qt::CopyAction);
    event.setAccepted(!isReadOnly());
}

void TextView::dropFiles(const QList<QUrl>& urls) {
    if (urls.size() > 1) {
        Q_EMIT dropRefused(QStringLiteral("Only one file can be dropped at a time."));
        return;
    }
    const QString path = urls.front().toLocalFile();
    const auto text = readTextFile(path);
    if (text)
        replaceText(*text);
    else
        Q_EMIT dropRefused(reasonOf(text.error(), QFileInfo(path).fileName()));
}

} // namespace platform
