#include "Quillet/screens/info/ChipFace.h"

#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace quillet {

namespace {

// Points.
constexpr int leastHeight = 33;
constexpr int padding = 14;
constexpr qreal radius = 9;
constexpr qreal borderWidth = 3;

constexpr int mostLetters = 24; // of a middling width

QFont mediumFont() {
    QFont font = platform::font(platform::TextStyle::Subheadline);
    font.setWeight(QFont::Medium);
    return font;
}

int mostTextWidth(const QFontMetrics& metrics) {
    return mostLetters * metrics.averageCharWidth();
}

} // namespace

QSize chipSize(const QString& title, int leastWidth) {
    const QFontMetrics metrics(mediumFont());
    const int text = std::min(metrics.horizontalAdvance(title.simplified()), mostTextWidth(metrics));
    const QSize face(std::max(leastWidth, text + 2 * padding), std::max(leastHeight, metrics.height() + 12));
    return face.grownBy({chipMargin, chipMargin, chipMargin, chipMargin});
}

bool isChipTitleCut(const QString& title) {
    const QFontMetrics metrics(mediumFont());
    return metrics.horizontalAdvance(title.simplified()) > mostTextWidth(metrics);
}

void drawChip(QPainter& painter, const QWidget& chip, const QString& title, const ChipFace& face) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = chip.rect().marginsRemoved({chipMargin, chipMargin, chipMargin, chipMargin});
    if (face.fill) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(platform::color(*face.fill));
        painter.drawRoundedRect(body, radius, radius);
    }
    if (face.border) {
        constexpr qreal inset = borderWidth / 2;
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(platform::color(*face.border), borderWidth));
        painter.drawRoundedRect(body.adjusted(inset, inset, -inset, -inset), radius - inset, radius - inset);
    }
    painter.setFont(mediumFont());
    painter.setPen(face.text);
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // as the title is written
    const QFontMetrics metrics = painter.fontMetrics();
    painter.drawText(body, static_cast<int>(Qt::AlignCenter) | Qt::TextSingleLine,
                     metrics.elidedText(title.simplified(), Qt::ElideRight, mostTextWidth(metrics)));
    if (platform::showsFocusRing(chip)) platform::drawFocusRing(painter, body, radius);
}

} // namespace quillet
