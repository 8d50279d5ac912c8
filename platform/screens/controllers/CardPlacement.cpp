#include "platform/screens/controllers/CardPlacement.h"

#include "platform/screens/controllers/NavigationBar.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controllers/SizeClass.h"

#include <QtWidgets/QLayout>

#include <algorithm>

namespace platform {

namespace {

// Points.
constexpr int cardRadius = 14;
constexpr int cardMargin = 24;
constexpr QSize cardSize(540, 620);
constexpr int sheetGap = 28; // of the window that stays in view above a sheet
constexpr int bubbleMargin = 8;
constexpr QSize bubbleSize(375, 375);
constexpr int arrowLength = 11;
constexpr int arrowHalf = 13;
constexpr int alertWidth = 300;

constexpr qreal sheetDimming = 0.4;
constexpr qreal bubbleDimming = 0.1;

QPainterPath roundedPath(const QRectF& rect, qreal radius) {
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

CardPlacement onCard(const QRect& content, const QRect& card, qreal dimming) {
    CardPlacement placement;
    placement.content = content;
    placement.outline = roundedPath(card, cardRadius);
    placement.inside = roundedPath(card, cardRadius + 2);
    placement.dimming = dimming;
    return placement;
}

QRect centred(QSize size, const QRect& in) {
    QRect rect(QPoint(), size);
    rect.moveCenter(in.center());
    return rect;
}

// What the controller, or the first screen of a navigation, wants.
QSize contentSize(const ViewController& controller, QSize otherwise) {
    if (controller.preferredContentSize().isValid()) return controller.preferredContentSize();
    auto* navigation = qobject_cast<const NavigationController*>(&controller);
    if (!navigation || navigation->viewControllers().empty()) return otherwise;
    const QSize size = navigation->viewControllers().front()->preferredContentSize();
    return size.isValid() ? size + QSize(0, navigation->navigationBar().sizeHint().height()) : otherwise;
}

Qt::Edge opposite(Qt::Edge edge) {
    switch (edge) {
    case Qt::TopEdge:
        return Qt::BottomEdge;
    case Qt::BottomEdge:
        return Qt::TopEdge;
    case Qt::LeftEdge:
        return Qt::RightEdge;
    case Qt::RightEdge:
        break;
    }
    return Qt::LeftEdge;
}

// Where a bubble with its arrow on `edge` may lie.
QRect roomFor(Qt::Edge edge, const QRect& inside, const QRect& anchor) {
    QRect room = inside;
    switch (edge) {
    case Qt::TopEdge:
        room.setTop(anchor.bottom() + 1 + arrowLength);
        break;
    case Qt::BottomEdge:
        room.setBottom(anchor.top() - 1 - arrowLength);
        break;
    case Qt::LeftEdge:
        room.setLeft(anchor.right() + 1 + arrowLength);
        break;
    case Qt::RightEdge:
        room.setRight(anchor.left() - 1 - arrowLength);
        break;
    }
    return room;
}

bool isVertical(Qt::Edge edge) {
    return edge == Qt::TopEdge || edge == Qt::BottomEdge;
}

int depth(Qt::Edge edge, QSize size) {
    return isVertical(edge) ? size.height() : size.width();
}

// Against the anchor, centred on it as far as the room allows.
QRect bubbleIn(const QRect& room, Qt::Edge edge, const QRect& anchor, QSize size) {
    QRect bubble(QPoint(), size.boundedTo(room.size()));
    bubble.moveCenter(anchor.center());
    bubble.moveLeft(std::clamp(bubble.left(), room.left(), room.right() + 1 - bubble.width()));
    bubble.moveTop(std::clamp(bubble.top(), room.top(), room.bottom() + 1 - bubble.height()));
    if (edge == Qt::TopEdge) bubble.moveTop(room.top());
    if (edge == Qt::BottomEdge) bubble.moveBottom(room.bottom());
    if (edge == Qt::LeftEdge) bubble.moveLeft(room.left());
    if (edge == Qt::RightEdge) bubble.moveRight(room.right());
    return bubble;
}

QPainterPath arrowPath(const QRectF& bubble, Qt::Edge edge, QPointF target) {
    const qreal clear = cardRadius + arrowHalf;
    const auto along = [clear](qreal at, qreal from, qreal to) {
        return std::clamp(at, std::min(from + clear, (from + to) / 2), std::max(to - clear, (from + to) / 2));
    };
    const qreal x = along(target.x(), bubble.left(), bubble.right());
    const qreal y = along(target.y(), bubble.top(), bubble.bottom());
    const QPointF base = edge == Qt::TopEdge      ? QPointF(x, bubble.top())
                         : edge == Qt::BottomEdge ? QPointF(x, bubble.bottom())
                         : edge == Qt::LeftEdge   ? QPointF(bubble.left(), y)
                                                  : QPointF(bubble.right(), y);
    const qreal sign = edge == Qt::TopEdge || edge == Qt::LeftEdge ? -1 : 1;
    const QPointF out = isVertical(edge) ? QPointF(0, sign * arrowLength) : QPointF(sign * arrowLength, 0);
    const QPointF side = isVertical(edge) ? QPointF(arrowHalf, 0) : QPointF(0, arrowHalf);
    QPainterPath path(base - side - out / arrowLength); // a point into the bubble, so that no seam shows
    path.lineTo(base - side);
    path.quadTo(base - side / 4, base + out);
    path.quadTo(base + side / 4, base + side);
    path.lineTo(base + side - out / arrowLength);
    path.closeSubpath();
    return path;
}

} // namespace

CardPlacement automaticPlacement(const QRect& window, const ViewController& controller) {
    if (horizontalSizeClass(window.width()) == SizeClass::Compact) {
        const QRect sheet = window.adjusted(0, sheetGap, 0, 0);
        return onCard(sheet, sheet.adjusted(0, 0, 0, cardRadius), sheetDimming); // no rounding at its foot
    }
    const QSize room = window.size() - QSize(2 * cardMargin, 2 * cardMargin);
    const QRect card = centred(contentSize(controller, cardSize).boundedTo(room), window);
    return onCard(card, card, sheetDimming);
}

CardPlacement popoverPlacement(const QRect& window, const ViewController& controller) {
    const PopoverAnchor& anchor = controller.popoverAnchor;
    if (!anchor.view || horizontalSizeClass(window.width()) == SizeClass::Compact)
        return automaticPlacement(window, controller);
    const QRect rect(anchor.view->mapTo(anchor.view->window(), anchor.rect.topLeft()), anchor.rect.size());
    return bubblePlacement(window, rect, anchor.arrow, contentSize(controller, bubbleSize));
}

CardPlacement bubblePlacement(const QRect& window, const QRect& anchor, Qt::Edge arrow, QSize size) {
    const QRect inside = window.adjusted(bubbleMargin, bubbleMargin, -bubbleMargin, -bubbleMargin);
    const int wanted = depth(arrow, roomFor(arrow, inside, anchor).size());
    const int other = depth(arrow, roomFor(opposite(arrow), inside, anchor).size());
    const Qt::Edge edge = wanted < depth(arrow, size) && other > wanted ? opposite(arrow) : arrow;
    // An anchor at the very edge of the window still leaves the bubble inside.
    QRect room = roomFor(edge, inside, anchor).intersected(inside);
    if (room.isEmpty()) room = inside;
    const QRect bubble = bubbleIn(room, edge, anchor, size);
    CardPlacement placement = onCard(bubble, bubble, bubbleDimming);
    placement.outline = placement.outline.united(arrowPath(QRectF(bubble), edge, QRectF(anchor).center()));
    placement.entrance = CardPlacement::Entrance::Fade;
    return placement;
}

CardPlacement coveringPlacement(const QRect& window, const ViewController& /*controller*/) {
    CardPlacement placement;
    placement.content = window;
    placement.entrance = CardPlacement::Entrance::Fade;
    return placement;
}

CardPlacement alertPlacement(const QRect& window, const ViewController& controller) {
    const int width = std::min(alertWidth, window.width() - 2 * bubbleMargin);
    const int height = std::min(controller.heightForWidth(width), window.height() - 2 * bubbleMargin);
    const QRect card = centred({width, height}, window);
    CardPlacement placement = onCard(card, card, sheetDimming);
    placement.entrance = CardPlacement::Entrance::Fade;
    placement.surrounding = CardPlacement::Surrounding::Inert;
    return placement;
}

} // namespace platform
