#include "platform/screens/list/ListPointer.h"

#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtGui/QHelpEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolTip>

namespace platform {

namespace {

// A touchpad does not always say where its swipe ends: this long after its last movement.
constexpr std::chrono::milliseconds wheelPause(150);

bool isHorizontal(const QPoint& movement) {
    return std::abs(movement.x()) > 2 * std::abs(movement.y());
}

} // namespace

ListPointer::ListPointer(ListView& list)
    : m_list(list)
    , m_swipe([this] { m_list.viewport()->update(); })
    , m_stopEnd(Timer::Kind::OneShot, std::chrono::milliseconds(0), [this] { m_isTouchAStop = false; })
    , m_wheelEnd(Timer::Kind::OneShot, wheelPause, [this] { endWheel(); }) {
    QObject::connect(QScroller::scroller(list.viewport()), &QScroller::stateChanged, &list,
                     [this](QScroller::State state) { scrollerBecame(state); });
}

ListPointer::Target ListPointer::targetAt(const QPoint& at) const {
    const QModelIndex index = m_list.indexAt(at);
    const auto row = m_list.rows().rowOf(index);
    if (!row || !isChoosable(index)) return {};
    const RowParts parts = m_list.partsOf(*row);
    if (parts.button.contains(at)) return {index, true};
    return row->style == ListView::RowStyle::Header || parts.card.contains(at) ? Target{index, false}
                                                                               : Target{};
}

void ListPointer::change(Target& target, const Target& to) {
    if (target == to) return;
    const Target before = std::exchange(target, to);
    m_list.updateRow(before.index);
    m_list.updateRow(target.index);
}

void ListPointer::findHover() {
    change(m_hovered, m_isOver ? targetAt(m_pointer) : Target());
}

RowLook ListPointer::lookOf(const QModelIndex& index) const {
    const bool isHovered = m_hovered.index == index && !QApplication::activePopupWidget();
    const bool isPressed = m_pressed.index == index;
    RowLook look;
    look.isHovered = isHovered && !m_hovered.isButton;
    look.isButtonHovered = isHovered && m_hovered.isButton;
    look.isPressed = isPressed && !m_pressed.isButton;
    look.isButtonPressed = isPressed && m_pressed.isButton;
    return look;
}

void ListPointer::rowsScrolled() {
    m_swipe.close();
    findHover();
}

void ListPointer::modelWasReset() {
    m_swipe.closeAtOnce();
    findHover();
}

// It may know of a touch, in the same turn of the main loop, before the rows do.
void ListPointer::scrollerBecame(QScroller::State state) {
    m_isTouchAStop = std::exchange(m_scroller, state) == QScroller::Scrolling;
    if (m_isTouchAStop) m_stopEnd.start();
    if (state == QScroller::Dragging) cancel(); // a finger that scrolls presses nothing
}

void ListPointer::begin(const QPoint& at) {
    m_pressedAt = at;
    if (!m_swipe.isUncovered()) {
        change(m_pressed, targetAt(at));
        return;
    }
    const auto row = m_list.rows().rowOf(m_swipe.index());
    const bool isOnRow = row && m_list.rectOf(*row).contains(at);
    m_swipe.press(isOnRow ? m_list.partsOf(*row).card : QRect(), at, m_list.layoutDirection());
}

void ListPointer::end(const QPoint& at) {
    const Target pressed = m_pressed;
    change(m_pressed, {});
    if (!pressed.index.isValid() || targetAt(at) != pressed) return;
    if (pressed.isButton)
        m_list.pressButton(pressed.index);
    else
        m_list.activate(pressed.index);
}

void ListPointer::press(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton) begin(event.position().toPoint());
}

void ListPointer::move(const QMouseEvent& event) {
    m_isOver = true;
    m_pointer = event.position().toPoint();
    findHover();
    if (!(event.buttons() & Qt::LeftButton)) change(m_pressed, {}); // it was let go elsewhere
    if (!m_pressed.index.isValid() || m_pressed.isButton) return;
    if ((m_pointer - m_pressedAt).manhattanLength() >= QApplication::startDragDistance()) drag();
}

void ListPointer::release(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton) end(event.position().toPoint());
}

void ListPointer::drag() {
    const QModelIndex index = m_pressed.index;
    if (!(index.flags() & Qt::ItemIsDragEnabled)) return;
    std::unique_ptr<QMimeData> data(m_list.model()->mimeData({index}));
    change(m_pressed, {});
    if (!data) return;
    auto* drag = new QDrag(&m_list); // deletes itself when it is over
    drag->setMimeData(data.release());
    const QRect rect = m_list.visualRect(index);
    drag->setPixmap(m_list.viewport()->grab(rect));
    drag->setHotSpot(m_pressedAt - rect.topLeft());
    drag->exec(m_list.model()->supportedDragActions(), Qt::CopyAction);
}

bool ListPointer::handle(QEvent& event) {
    switch (event.type()) {
    case QEvent::Hide:
        cancel();
        [[fallthrough]];
    case QEvent::Leave:
        m_isOver = false;
        findHover();
        return false;
    case QEvent::ToolTip: {
        const auto& help = static_cast<QHelpEvent&>(event);
        return showToolTip(help.pos(), help.globalPos());
    }
    case QEvent::Wheel:
        return wheel(static_cast<QWheelEvent&>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        touch(static_cast<QTouchEvent&>(event));
        return true;
    default:
        return false;
    }
}

void ListPointer::touch(QTouchEvent& event) {
    event.accept();
    if (event.type() == QEvent::TouchCancel || event.pointCount() != 1) {
        cancel();
        return;
    }
    const QPoint at = event.points().constFirst().position().toPoint();
    if (event.type() == QEvent::TouchBegin) {
        const bool isStop = m_scroller == QScroller::Scrolling || m_isTouchAStop;
        m_finger = isStop ? Finger::Stopping : Finger::Pressing;
        m_fingerAt = at;
        if (!isStop && !isOnUncovered(at)) begin(at);
        return;
    }
    fingerMoved(at);
    if (event.type() != QEvent::TouchEnd) return;
    const Finger finger = std::exchange(m_finger, Finger::Away);
    if (finger == Finger::Swiping) m_swipe.release();
    if (finger != Finger::Pressing) return;
    if (isOnUncovered(at))
        begin(at);
    else
        end(at);
}

void ListPointer::fingerMoved(const QPoint& at) {
    const QPoint movement = at - m_fingerAt;
    if (m_finger == Finger::Pressing && movement.manhattanLength() >= QApplication::startDragDistance()) {
        change(m_pressed, {});
        m_finger = isHorizontal(movement) && beginSwipe(m_fingerAt) ? Finger::Swiping : Finger::Other;
    }
    if (m_finger == Finger::Swiping) swipeBy(movement.x());
}

void ListPointer::cancel() {
    change(m_pressed, {});
    if (std::exchange(m_finger, Finger::Other) == Finger::Swiping) m_swipe.close();
}

bool ListPointer::isOnUncovered(const QPoint& at) const {
    return m_swipe.isUncovered() && m_list.indexAt(at) == m_swipe.index();
}

bool ListPointer::beginSwipe(const QPoint& at) {
    const auto row = m_list.rows().rowOf(m_list.indexAt(at));
    if (!row || !m_list.swipeActions) return false;
    auto actions = m_list.swipeActions(row->index);
    if (actions.empty()) return false;
    m_swipe.begin(row->index, std::move(actions), m_list.partsOf(*row).card.width());
    return true;
}

void ListPointer::swipeBy(int pixelsToTheRight) {
    m_swipe.moveTo(m_list.isRightToLeft() ? pixelsToTheRight : -pixelsToTheRight);
}

// Whether it is a swipe; a wheel that turns the other way scrolls.
bool ListPointer::wheel(const QWheelEvent& event) {
    const QPoint pixels = event.pixelDelta();
    const bool goesOn = m_wheelEnd.isActive();
    if (goesOn && (event.phase() == Qt::ScrollEnd || isHorizontal(pixels.transposed()))) {
        endWheel();
        return event.phase() == Qt::ScrollEnd;
    }
    if (!goesOn && (!isHorizontal(pixels) || !beginSwipe(event.position().toPoint()))) return false;
    m_wheeled += pixels.x();
    swipeBy(m_wheeled);
    m_wheelEnd.start();
    return true;
}

void ListPointer::endWheel() {
    m_wheelEnd.stop();
    m_wheeled = 0;
    m_swipe.release();
}

bool ListPointer::showToolTip(const QPoint& at, const QPoint& onScreen) const {
    const QModelIndex index = m_list.indexAt(at);
    const auto row = m_list.rows().rowOf(index);
    if (!row) return true;
    const RowContent content = contentOf(index);
    const RowParts parts = m_list.partsOf(*row);
    QString text = index.data(Qt::ToolTipRole).toString();
    if (parts.button.contains(at)) text = content.buttonName;
    const QFontMetrics metrics(titleFont(row->style, false));
    if (text.isEmpty() && metrics.horizontalAdvance(content.title) > parts.title.width())
        text = content.title;
    // A title may well look like markup.
    if (!text.isEmpty()) text = QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
    QToolTip::showText(onScreen, text, m_list.viewport(), m_list.rectOf(*row));
    return true;
}

} // namespace platform
