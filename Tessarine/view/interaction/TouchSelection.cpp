#include "Tessarine/view/interaction/TouchSelection.h"

#include "Tessarine/view/QtTimerScheduler.h"
#include "Tessarine/view/interaction/ViewPlaces.h"
#include "Tessarine/view/interaction/ViewScrolling.h"

#include <QtGui/QTouchEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScroller>
#include <QtWidgets/QWidget>

#include <chrono>
#include <utility>

namespace tessarine {

namespace {

constexpr std::chrono::milliseconds longPressDuration{500};

} // namespace

TouchSelection::TouchSelection(TextView& textView, ViewScrolling& scrolling, QWidget& viewport,
                               Actions actions)
    : m_textView(textView)
    , m_scrolling(scrolling)
    , m_viewport(viewport)
    , m_actions(std::move(actions))
    , m_handles(textView, scrolling, viewport, m_actions.selected)
    , m_quickTap(std::make_shared<QtTimerScheduler>(), [this] { tap(); })
    , m_edgeScroll([this](const QPointF& step) {
        if (m_scrolling.moveBy(step)) m_textView.movement().extendByWordsTo(locationAt(m_textView, m_last));
    }) {
    m_longPress.setSingleShot(true);
    m_longPress.setInterval(longPressDuration);
    QObject::connect(&m_longPress, &QTimer::timeout, &m_longPress, [this] { pressLong(); });
}

void TouchSelection::touch(const QTouchEvent& event) {
    if (event.type() == QEvent::TouchCancel || event.points().size() != 1) {
        cancel();
        return;
    }
    const QPointF place = event.points().front().position();
    if (event.type() == QEvent::TouchBegin)
        begin(place, event.timestamp());
    else if (event.type() == QEvent::TouchUpdate)
        move(place, event.timestamp());
    else
        end(place, event.timestamp());
}

// A touch that stops a content on its way is no tap.
void TouchSelection::begin(const QPointF& place, quint64 time) {
    QScroller& scroller = *QScroller::scroller(&m_viewport);
    const bool isMoving = scroller.state() == QScroller::Scrolling;
    m_pressed = m_last = place;
    m_finger = isMoving ? Finger::scrolling : Finger::resting;
    scroller.handleInput(QScroller::InputPress, place, static_cast<qint64>(time));
    if (isMoving || !m_textView.isSelectable()) return;
    m_tapCount = m_taps.tap(m_viewport.mapToGlobal(place).toPoint(), time);
    m_quickTap.touchesBegan();
    m_longPress.start();
}

void TouchSelection::move(const QPointF& place, quint64 time) {
    m_last = place;
    if (m_finger == Finger::resting &&
        (place - m_pressed).manhattanLength() >= QApplication::startDragDistance()) {
        m_quickTap.touchesCancelled();
        m_longPress.stop();
        m_finger = Finger::scrolling;
    }
    if (m_finger == Finger::scrolling) {
        QScroller::scroller(&m_viewport)->handleInput(QScroller::InputMove, place, static_cast<qint64>(time));
    } else if (m_finger == Finger::selecting) {
        m_edgeScroll.dragTo(place, m_viewport.rect());
        m_textView.movement().extendByWordsTo(locationAt(m_textView, place));
    }
}

void TouchSelection::end(const QPointF& place, quint64 time) {
    m_longPress.stop();
    m_edgeScroll.stop();
    const Finger finger = std::exchange(m_finger, Finger::none);
    if (finger == Finger::resting || finger == Finger::scrolling)
        QScroller::scroller(&m_viewport)
            ->handleInput(QScroller::InputRelease, place, static_cast<qint64>(time));
    if (finger == Finger::resting)
        m_quickTap.touchesEnded();
    else if (finger == Finger::selecting)
        finishSelecting(place);
}

void TouchSelection::finishSelecting(const QPointF& place) {
    m_actions.selected();
    m_actions.showMenu(place);
}

void TouchSelection::cancel() {
    m_finger = Finger::none;
    m_quickTap.touchesCancelled();
    m_longPress.stop();
    m_edgeScroll.stop();
    QScroller::scroller(&m_viewport)->stop();
}

void TouchSelection::tap() {
    const std::int64_t location = locationAt(m_textView, m_pressed);
    if (m_tapCount == 1) {
        m_handles.hide();
        m_textView.movement().moveTo(location, SelectionMode::move);
    } else {
        select(m_tapCount == 2 ? &SelectionMovement::selectWordAt : &SelectionMovement::selectLineAt,
               location);
        m_actions.selected();
    }
    m_actions.beginEditing();
}

void TouchSelection::select(void (SelectionMovement::*selectUnitAt)(std::int64_t), std::int64_t location) {
    (m_textView.movement().*selectUnitAt)(location);
    m_handles.show();
}

void TouchSelection::pressLong() {
    QScroller::scroller(&m_viewport)->stop();
    m_finger = Finger::selecting;
    select(&SelectionMovement::selectWordAt, locationAt(m_textView, m_pressed));
}

} // namespace tessarine
