#include "Quillet/screens/info/NotesLabel.h"

#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QResizeEvent>
#include <QtGui/QTextLayout>

namespace quillet {

namespace {

constexpr int mostLines = 3;
constexpr qsizetype mostUnits = 2000; // of which more could not fit

// The text as far as it goes on so many lines.
QString cutShort(const QString& text, const QFont& font, int width) {
    QTextLayout layout(QString(text.left(mostUnits)).replace(u'\n', QChar::LineSeparator), font);
    layout.beginLayout();
    for (int line = 1;; ++line) {
        QTextLine next = layout.createLine();
        if (!next.isValid()) return text;
        next.setLineWidth(width);
        if (line < mostLines) continue;
        const qsizetype end = next.textStart() + next.textLength();
        if (end >= text.size()) return text;
        return QStringView(text).left(std::max<qsizetype>(0, end - 2)).trimmed().toString() + u'…';
    }
}

} // namespace

NotesLabel::NotesLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    platform::setTextStyle(*this, platform::TextStyle::Subheadline);
}

void NotesLabel::setText(const QString& text) {
    m_notes = text;
    fit();
}

void NotesLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) fit();
}

void NotesLabel::fit() {
    const QString shown = cutShort(m_notes, font(), std::max(contentsRect().width(), 100));
    QLabel::setText(shown);
    setToolTip(shown == m_notes ? QString() : m_notes);
    setAccessibleName(m_notes);
    setFixedHeight(std::max(heightForWidth(std::max(width(), 100)), 0));
}

} // namespace quillet
