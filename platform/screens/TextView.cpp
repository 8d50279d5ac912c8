#include "platform/screens/TextView.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>

#include <algorithm>

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
