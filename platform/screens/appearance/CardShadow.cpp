#include "platform/screens/appearance/CardShadow.h"

#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>
#include <QtWidgets/qdrawutil.h>

namespace platform {

namespace {

constexpr int reach = 40;        // points beyond the card
constexpr int drop = 8;          // points, the light comes from above
constexpr qreal strength = 0.16; // of black, where the card meets its shadow

// Concentric outlines, each a little less dark: together they fall off like a blur.
QPixmap makeShadow(int side, int cornerRadius) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int out = reach; out >= 0; out--) {
        const qreal nearness = 1 - qreal(out) / reach;
        const qreal inset = reach - out;
        painter.setBrush(QColor::fromRgbF(0, 0, 0, float(strength * nearness * nearness)));
        painter.drawRoundedRect(QRectF(picture.rect()).adjusted(inset, inset, -inset, -inset),
                                cornerRadius + out, cornerRadius + out);
    }
    return picture;
}

} // namespace

void drawCardShadow(QPainter& painter, const QRect& card, int cornerRadius) {
    const int margin = reach + cornerRadius;
    const auto key = QStringLiteral("CardShadow %1").arg(cornerRadius);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = makeShadow(2 * margin + 1, cornerRadius);
        QPixmapCache::insert(key, picture);
    }
    const QRect shadow = card.adjusted(-reach, drop - reach, reach, drop + reach);
    qDrawBorderPixmap(&painter, shadow, QMargins(margin, margin, margin, margin), picture);
}

QRect withCardShadow(const QRect& card) {
    return card.adjusted(-reach, -reach, reach, drop + reach);
}

} // namespace platform
