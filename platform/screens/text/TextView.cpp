#include "platform/screens/text/TextView.h"

#include "platform/foundation/LineDiff.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextLayout>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <ranges>

namespace platform {

namespace {

QTextCharFormat formatOf(const TextAttributes& attributes) {
    QTextCharFormat format;
    if (attributes.foreground) format.setForeground(QColor::fromRgba(*attributes.foreground));
    if (attributes.background) format.setBackground(QColor::fromRgba(*attributes.background));
    if (attributes.bold) format.setFontWeight(QFont::Bold);
    if (attributes.italic) format.setFontItalic(true);
    if (attributes.underline) format.setFontUnderline(true);
    return format;
}

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

} // namespace

TextView::TextView(QWidget* parent)
    : QPlainTextEdit(parent) {
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(false);
    connect(document(), &QTextDocument::contentsChange, this, &TextView::trackBreaks);
}

void TextView::setText(const QString& text) {
    auto split = splitBreaks(text);
    m_replacing = true;
    setPlainText(split.text);
    m_replacing = false;
    m_newBreak = dominantBreak(split.breaks);
    m_breaks = std::move(split.breaks);
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
    m_newBreak = dominantBreak(split.breaks);
    m_breaks = std::move(split.breaks);
    if (top.isValid()) verticalScrollBar()->setValue(top.firstLineNumber());
}

QString TextView::text() const {
    return joinBreaks(displayText(), m_breaks);
}

QString TextView::displayText() const {
    QString raw = document()->toRawText(); // toPlainText() would turn no-break spaces into spaces
    return raw.replace(QChar::ParagraphSeparator, QChar::LineFeed);
}

void TextView::trackBreaks(int position, int /*removed*/, int added) {
    if (m_replacing) return;
    // The signal may count the end of the document in; only how many lines came and went matters here.
    const int last = document()->characterCount() - 1;
    const auto first =
        static_cast<std::size_t>(document()->findBlock(std::min(position, last)).blockNumber());
    const auto limit =
        static_cast<std::size_t>(document()->findBlock(std::min(position + added, last)).blockNumber());
    const auto now = static_cast<std::size_t>(document()->blockCount() - 1);
    const std::size_t fresh = limit - first;
    const std::size_t gone = m_breaks.size() + fresh - now;
    const auto at = m_breaks.begin() + static_cast<std::ptrdiff_t>(first);
    // A break that was removed and typed again in one step keeps its kind.
    const std::size_t kept = std::min(gone, fresh);
    if (gone > kept)
        m_breaks.erase(at + static_cast<std::ptrdiff_t>(kept), at + static_cast<std::ptrdiff_t>(gone));
    else
        m_breaks.insert(at + static_cast<std::ptrdiff_t>(kept), fresh - kept, m_newBreak);
}

void TextView::setRuns(const std::vector<AttributeRun>& runs) {
    auto run = runs.begin();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const qsizetype start = block.position();
        const qsizetype limit = start + block.length() - 1; // without the separator
        QList<QTextLayout::FormatRange> formats;
        while (run != runs.end() && run->limit <= start)
            ++run;
        // A run over several lines is met again in the next one.
        for (auto each = run; each != runs.end() && each->start < limit; ++each) {
            const qsizetype from = std::max(each->start, start);
            const qsizetype to = std::min(each->limit, limit);
            if (from < to)
                formats.append({static_cast<int>(from - start), static_cast<int>(to - from),
                                formatOf(each->attributes)});
        }
        if (formats == block.layout()->formats()) continue;
        block.layout()->setFormats(formats);
        document()->markContentsDirty(block.position(), block.length());
    }
}

} // namespace platform
