#include "platform/screens/list/RowSwipe.h"

#include "platform/screens/appearance/Motion.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/appearance/TypeScale.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace platform {

namespace {

// Points.
constexpr int leastWidth = 76;
constexpr int titleMargin = 10;
constexpr int inset = 2;
constexpr qreal radius = 8;
constexpr int symbolSize = 16;
constexpr double fullPart = 0.6; // of the row's width
constexpr int slideDuration = 200;

void paintAction(QPainter& painter, const QRect& rect, const SwipeAction& action) {
    const bool isDestructive = action.role == SwipeAction::Role::Destructive;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(isDestructive ? Asset::SystemRed : Asset::Accent));
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
    const QFont titleFont = font(TextStyle::Footnote);
    const int titleHeight = QFontMetrics(titleFont).height();
    const int top = rect.top() + (rect.height() - symbolSize - titleHeight) / 2;
    const QColor ink = color(Asset::OnAccent);
    if (!action.symbol.isEmpty())
        drawSymbol(painter, QRectF(rect.center().x() - symbolSize / 2.0, top, symbolSize, symbolSize),
                   action.symbol, ink);
    painter.setFont(titleFont);
    painter.setPen(ink);
    painter.drawText(QRect(rect.left(), top + symbolSize, rect.width(), titleHeight), Qt::AlignCenter,
                     action.title);
}

} // namespace

RowSwipe::RowSwipe(std::function<void()> changed)
    : m_changed(std::move(changed)) {
    m_slide.setDuration(slideDuration);
    m_slide.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&m_slide, &QVariantAnimation::valueChanged, &m_slide,
                     [this](const QVariant& offset) { setOffset(offset.toInt()); });
    QObject::connect(&m_slide, &QAbstractAnimation::finished, &m_slide, [this] {
        if (m_offset == 0) closeAtOnce();
    });
}

void RowSwipe::begin(const QModelIndex& index, std::vector<SwipeAction> actions, int rowWidth) {
    m_slide.stop();
    if (m_index != index) closeAtOnce();
    m_index = index;
    m_actions = std::move(actions);
    m_rowWidth = rowWidth;
    m_beganAt = m_offset;
    m_widths.clear();
    m_allWidths = 0;
    const QFontMetrics metrics(font(TextStyle::Footnote));
    for (const auto& action : m_actions) {
        m_widths.push_back(
            std::max(leastWidth, metrics.horizontalAdvance(action.title) + 2 * (titleMargin + inset)));
        m_allWidths += m_widths.back();
    }
}

void RowSwipe::moveTo(int distance) {
    setOffset(std::clamp(m_beganAt + distance, 0, m_rowWidth));
}

bool RowSwipe::isFull() const {
    return m_offset > m_allWidths && m_offset > static_cast<int>(fullPart * m_rowWidth);
}

void RowSwipe::release() {
    if (!isUncovered()) return;
    if (isFull())
        take(0);
    else
        slideTo(m_offset > m_allWidths / 2 ? m_allWidths : 0);
}

void RowSwipe::close() {
    if (isUncovered()) slideTo(0);
}

void RowSwipe::closeAtOnce() {
    m_slide.stop();
    m_index = QPersistentModelIndex();
    m_actions.clear();
    setOffset(0);
}

void RowSwipe::slideTo(int offset) {
    m_slide.stop();
    if (reducesMotion() || offset == m_offset) {
        if (offset == 0)
            closeAtOnce();
        else
            setOffset(offset);
        return;
    }
    m_slide.setStartValue(m_offset);
    m_slide.setEndValue(offset);
    m_slide.start();
}

void RowSwipe::setOffset(int offset) {
    m_offset = offset;
    m_changed();
}

void RowSwipe::take(std::size_t action) {
    const auto handler = m_actions[action].handler; // what it does may end the row, and this with it
    closeAtOnce();
    if (handler) handler();
}

void RowSwipe::press(const QRect& card, const QPoint& at, Qt::LayoutDirection direction) {
    const auto rects = rectsOf(card, direction);
    for (std::size_t i = 0; i < rects.size(); ++i)
        if (rects[i].contains(at)) return take(i);
    close();
}

// They grow with the room that the row has left them; past a full swipe the first has all of it.
std::vector<QRect> RowSwipe::rectsOf(const QRect& card, Qt::LayoutDirection direction) const {
    std::vector<QRect> rects;
    int end = card.left() + card.width();
    for (std::size_t i = 0; i < m_actions.size(); ++i) {
        int width = m_allWidths > 0 ? m_offset * m_widths[i] / m_allWidths : 0;
        if (isFull()) width = i == 0 ? m_offset : 0;
        end -= width;
        rects.push_back(QStyle::visualRect(direction, card, QRect(end, card.top(), width, card.height())));
    }
    return rects;
}

void RowSwipe::paint(QPainter& painter, const QRect& card, Qt::LayoutDirection direction) const {
    const auto rects = rectsOf(card, direction);
    painter.save();
    for (std::size_t i = 0; i < rects.size(); ++i) {
        if (rects[i].width() <= 2 * inset) continue;
        painter.setClipRect(rects[i]);
        paintAction(painter, rects[i], m_actions[i]);
    }
    painter.restore();
}

} // namespace platform
