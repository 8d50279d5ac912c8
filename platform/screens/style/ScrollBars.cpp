#include "platform/screens/style/ScrollBars.h"

#include "platform/screens/appearance/Palette.h"

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

namespace platform::style {

namespace {

constexpr int leastSlider = 36;
constexpr int inset = 3; // 1 under the pointer

bool isHorizontal(const QStyleOptionSlider& option) {
    return option.orientation == Qt::Horizontal;
}

int lengthOf(const QStyleOptionSlider& option) {
    return isHorizontal(option) ? option.rect.width() : option.rect.height();
}

int sliderLength(const QStyleOptionSlider& option) {
    const int length = lengthOf(option);
    const qint64 range = qint64(option.maximum) - option.minimum;
    if (range <= 0) return length;
    const auto share = int(qint64(length) * option.pageStep / (range + option.pageStep));
    return std::clamp(share, std::min(leastSlider, length), length);
}

QRect stretch(const QStyleOptionSlider& option, int start, int limit) {
    const QRect& whole = option.rect;
    if (!isHorizontal(option)) return {whole.left(), whole.top() + start, whole.width(), limit - start};
    const QRect rect(whole.left() + start, whole.top(), limit - start, whole.height());
    return QStyle::visualRect(option.direction, whole, rect);
}

} // namespace

QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part) {
    const int length = lengthOf(option);
    const int slider = sliderLength(option);
    const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                      length - slider, option.upsideDown);
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return option.rect;
    case QStyle::SC_ScrollBarSlider:
        return stretch(option, start, start + slider);
    case QStyle::SC_ScrollBarSubPage:
        return stretch(option, 0, start);
    case QStyle::SC_ScrollBarAddPage:
        return stretch(option, start + slider, length);
    default:
        return {};
    }
}

void drawScrollBar(const QStyleOptionSlider& option, QPainter& painter) {
    if (option.maximum <= option.minimum) return;
    const bool isMarked =
        option.state.testFlag(QStyle::State_MouseOver) || option.state.testFlag(QStyle::State_Sunken);
    const int across = isMarked ? inset - 1 : inset;
    QRectF slider = scrollBarPart(option, QStyle::SC_ScrollBarSlider);
    slider.adjust(isHorizontal(option) ? 2 : across, isHorizontal(option) ? across : 2,
                  isHorizontal(option) ? -2 : -across, isHorizontal(option) ? -across : -2);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(isMarked ? Asset::TextSecondary : Asset::SystemGray));
    const qreal radius = std::min(slider.width(), slider.height()) / 2;
    painter.drawRoundedRect(slider, radius, radius);
    painter.restore();
}

} // namespace platform::style
