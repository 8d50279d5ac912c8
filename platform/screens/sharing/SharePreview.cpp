#include "platform/screens/sharing/SharePreview.h"

#include "platform/screens/appearance/Palette.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace platform {

namespace {

// Points.
constexpr QSize thumbnailSize(76, 56);
constexpr int gap = 12;
constexpr int lineGap = 2;
constexpr int radius = 6;

constexpr qsizetype mostOfALine = 200; // code units; more is never seen

QString firstLineOf(const QString& text) {
    const QString start = text.left(mostOfALine).trimmed();
    return start.left(std::ranges::find_if(start, [](QChar unit) { return unit == u'\n' || unit == u'\r'; }) -
                      start.begin());
}

// Fills the place of a thumbnail from the top.
QImage thumbnailOf(const QImage& image, qreal scale) {
    if (image.isNull()) return {};
    const QSize size = (QSizeF(thumbnailSize) * scale).toSize();
    QImage small = image.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation)
                       .copy(QRect(QPoint(), size));
    small.setDevicePixelRatio(scale);
    return small;
}

void drawLine(QPainter& painter, const QRect& place, const QString& line, TextStyle style, Asset ink) {
    painter.setFont(font(style));
    painter.setPen(color(ink));
    painter.drawText(place, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(line, Qt::ElideRight, place.width()));
}

int heightOfLine(TextStyle style) {
    return QFontMetrics(font(style)).height();
}

int heightOfText() {
    return heightOfLine(TextStyle::Headline) + lineGap + heightOfLine(TextStyle::Footnote);
}

} // namespace

SharePreview::SharePreview(const ShareItem& item, QWidget* parent)
    : QWidget(parent)
    , m_name(item.name.simplified().isEmpty() ? item.fileName() : item.name.simplified())
    , m_firstLine(item.text() ? firstLineOf(*item.text()) : QString())
    , m_thumbnail(item.image() ? thumbnailOf(*item.image(), devicePixelRatio()) : QImage()) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(m_firstLine.isEmpty() ? m_name : QStringLiteral("%1, %2").arg(m_name, m_firstLine));
}

QSize SharePreview::sizeHint() const {
    return {0, std::max(heightOfText(), m_thumbnail.isNull() ? 0 : thumbnailSize.height())};
}

void SharePreview::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QRect room = rect();
    const auto place = [this](const QRect& rect) {
        return QStyle::visualRect(layoutDirection(), this->rect(), rect);
    };
    if (!m_thumbnail.isNull()) {
        QRect thumbnail(room.topLeft(), thumbnailSize);
        thumbnail.moveTop((height() - thumbnailSize.height()) / 2);
        QPainterPath outline;
        outline.addRoundedRect(QRectF(place(thumbnail)).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
        painter.setClipPath(outline);
        painter.drawImage(place(thumbnail), m_thumbnail);
        painter.setClipping(false);
        painter.strokePath(outline, color(Asset::Separator));
        room.setLeft(thumbnail.right() + 1 + gap);
    }
    const int needed = m_firstLine.isEmpty() ? heightOfLine(TextStyle::Headline) : heightOfText();
    QRect line(room.left(), (height() - needed) / 2, room.width(), heightOfLine(TextStyle::Headline));
    drawLine(painter, place(line), m_name, TextStyle::Headline, Asset::Text);
    if (m_firstLine.isEmpty()) return;
    line = QRect(line.left(), line.bottom() + 1 + lineGap, line.width(), heightOfLine(TextStyle::Footnote));
    drawLine(painter, place(line), m_firstLine, TextStyle::Footnote, Asset::TextSecondary);
}

} // namespace platform
