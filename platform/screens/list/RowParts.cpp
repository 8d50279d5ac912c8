#include "platform/screens/list/RowParts.h"

#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QFontMetrics>
#include <QtWidgets/QStyle>

namespace platform {

using RowStyle = ListView::RowStyle;

namespace {

// Points.
constexpr int cardPadding = 14;
constexpr int depthIndent = 28;
constexpr int symbolSpacing = 12;
constexpr int endSpacing = 10;
constexpr int chevronSize = 13;
constexpr int checkmarkSize = 18;
constexpr int buttonSize = 44;

// Symbols grow with the text beside them.
int symbolSize(const QFontMetrics& metrics) {
    return std::max(20, metrics.height());
}

// Gives out the room of a row from its two ends, from left to right.
class Room {
public:
    explicit Room(const QRect& rect)
        : m_left(rect.left())
        , m_right(rect.left() + rect.width())
        , m_rect(rect) {}

    QRectF fromStart(int size, int spacing) {
        const int left = m_left;
        m_left += size + spacing;
        return squareAt(left, size);
    }

    QRectF fromEnd(int size, int spacing) {
        const int left = m_right - size;
        m_right = left - spacing;
        return squareAt(left, size);
    }

    QRect textFromEnd(int width, int spacing) {
        const QRect rect(m_right - width, m_rect.top(), width, m_rect.height());
        m_right -= width + spacing;
        return rect;
    }

    int left() const { return m_left; }

    QRect rest() const { return {m_left, m_rect.top(), std::max(0, m_right - m_left), m_rect.height()}; }

private:
    QRectF squareAt(int left, int size) const {
        return {qreal(left), m_rect.top() + (m_rect.height() - size) / 2.0, qreal(size), qreal(size)};
    }

    int m_left;
    int m_right;
    QRect m_rect;
};

QRectF mirrored(const QRectF& part, const QRect& within) {
    return {2 * within.left() + within.width() - part.left() - part.width(), part.top(), part.width(),
            part.height()};
}

void mirror(RowParts& parts, const QRect& rect) {
    for (QRectF* part : {&parts.symbol, &parts.chevron, &parts.checkmark})
        if (!part->isEmpty()) *part = mirrored(*part, rect);
    for (QRect* part : {&parts.title, &parts.detail, &parts.button, &parts.separator})
        if (!part->isEmpty()) *part = QStyle::visualRect(Qt::RightToLeft, rect, *part);
}

} // namespace

QFont titleFont(RowStyle style, bool isSelected) {
    switch (style) {
    case RowStyle::Header:
        return font(TextStyle::Title);
    case RowStyle::SectionHeader:
        return font(TextStyle::Footnote);
    case RowStyle::Row:
        break;
    }
    return font(isSelected ? TextStyle::Headline : TextStyle::Body);
}

RowParts partsOf(const RowContent& content, const VisibleRow& row, const QRect& rect,
                 Qt::LayoutDirection direction) {
    RowParts parts;
    parts.card = rect.adjusted(cardMargin, 0, -cardMargin, 0);
    const QFontMetrics metrics(titleFont(row.style, false));
    const bool isHeader = row.style == RowStyle::Header;
    const int padding = isHeader ? 4 : cardPadding;
    Room room(parts.card.adjusted(padding + row.depth * depthIndent, 0, -padding, 0));
    if (row.style == RowStyle::SectionHeader)
        room = Room(parts.card.adjusted(padding, parts.card.height() - metrics.height() - 6, -padding, -6));

    if (!content.symbol.isEmpty()) parts.symbol = room.fromStart(symbolSize(metrics), symbolSpacing);
    if (content.isGroup || content.accessory == ListView::Accessory::Chevron)
        parts.chevron = room.fromEnd(chevronSize, endSpacing);
    if (content.accessory == ListView::Accessory::Checkmark)
        parts.checkmark = room.fromEnd(checkmarkSize, endSpacing);
    if (!content.buttonSymbol.isEmpty()) parts.button = room.fromEnd(buttonSize, 2).toRect();
    if (!content.detail.isEmpty()) {
        const int wanted = QFontMetrics(titleFont(RowStyle::Row, false)).horizontalAdvance(content.detail);
        parts.detail = room.textFromEnd(std::min(wanted + 1, room.rest().width() / 2), endSpacing);
    }
    parts.title = room.rest();
    if (!row.isFirstOfCard && row.style == RowStyle::Row)
        parts.separator =
            QRect(room.left(), rect.top(), parts.card.left() + parts.card.width() - room.left(), 1);
    if (direction == Qt::RightToLeft) mirror(parts, rect);
    return parts;
}

VisibleRows::Metrics listMetrics() {
    VisibleRows::Metrics metrics;
    const auto grown = [](int least, RowStyle style) {
        return std::max(least, QFontMetrics(titleFont(style, false)).height() + 16);
    };
    metrics.header = grown(metrics.header, RowStyle::Header);
    metrics.sectionHeader = grown(metrics.sectionHeader, RowStyle::SectionHeader);
    metrics.row = grown(metrics.row, RowStyle::Row);
    return metrics;
}

} // namespace platform
