#include "Quillet/screens/info/NotesLabel.h"

#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controls/PlainToolTip.h"

#include <QtGui/QPainter>
#include <QtGui/QTextLayout>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace quillet {

namespace {

constexpr int mostHeight = 64;        // points; one line is shown at least
constexpr int leastWidth = 100;       // points
constexpr qsizetype mostUnits = 2000; // of which more could not fit

} // namespace

NotesLabel::NotesLabel(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    platform::setTextStyle(*this, platform::TextStyle::Subheadline);
}

void NotesLabel::setNotes(const QString& notes) {
    if (notes == text()) return;
    setText(notes);
    platform::setPlainToolTip(*this, notes);
    updateGeometry();
}

// The last one is the rest of its paragraph where not everything fits.
QStringList NotesLabel::linesIn(int width) const {
    const QString shown = text().left(mostUnits).trimmed();
    const int most = std::max(1, mostHeight / fontMetrics().lineSpacing());
    QTextLayout layout(QString(shown).replace(u'\n', QChar::LineSeparator), font());
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const QString text = shown.mid(line.textStart(), line.textLength());
        const bool isLast = lines.size() + 1 == most;
        const bool goesOn = line.textStart() + line.textLength() < shown.size();
        if (isLast && goesOn) {
            const QString rest = shown.mid(line.textStart()).section(u'\n', 0, 0);
            lines += rest.size() > text.size() ? rest : text.trimmed() + u'…';
            break;
        }
        lines += text;
    }
    layout.endLayout();
    return lines;
}

int NotesLabel::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    const int inner = std::max(width - margins.left() - margins.right(), leastWidth);
    const auto lines = static_cast<int>(std::max<qsizetype>(1, linesIn(inner).size()));
    return lines * fontMetrics().lineSpacing() + margins.top() + margins.bottom();
}

QSize NotesLabel::sizeHint() const {
    return {leastWidth, heightForWidth(std::max(width(), leastWidth))};
}

QSize NotesLabel::minimumSizeHint() const {
    return {0, heightForWidth(std::max(width(), leastWidth))};
}

void NotesLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // as the text is written, whatever the screen
    const QRect inner = contentsRect();
    const auto alignment = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignTop);
    int top = inner.top();
    for (const QString& line : linesIn(std::max(inner.width(), leastWidth))) {
        painter.drawText(QRect(inner.left(), top, inner.width(), fontMetrics().lineSpacing()),
                         static_cast<int>(alignment) | Qt::TextSingleLine,
                         fontMetrics().elidedText(line.trimmed(), Qt::ElideRight, inner.width()));
        top += fontMetrics().lineSpacing();
    }
}

} // namespace quillet
