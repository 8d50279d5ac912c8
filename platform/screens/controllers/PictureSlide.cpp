#include "platform/screens/controllers/PictureSlide.h"

#include "platform/screens/appearance/Motion.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>

#include <utility>

namespace platform {

namespace {

constexpr int slideMilliseconds = 380;
constexpr qreal parallax = 0.3;     // how far what lies below moves, of the width
constexpr qreal shade = 0.12;       // of what lies below, when it is covered
constexpr int edgeShadowWidth = 14; // points

// With all layouts inside in force.
QPixmap pictureOf(QWidget& view) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return view.grab();
}

} // namespace

void PictureSlide::run(QWidget& view, QPixmap before, Way way, std::function<void()> done) {
    delete view.findChild<PictureSlide*>(QString(), Qt::FindDirectChildrenOnly);
    new PictureSlide(view, std::move(before), way, std::move(done)); // the view owns it
}

PictureSlide::PictureSlide(QWidget& view, QPixmap before, Way way, std::function<void()> done)
    : QWidget(&view)
    , m_before(std::move(before))
    , m_after(pictureOf(view))
    , m_way(way)
    , m_done(std::move(done))
    , m_animation(new QVariantAnimation(this)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setGeometry(view.rect());
    view.installEventFilter(this);
    m_animation->setDuration(slideMilliseconds);
    m_animation->setEasingCurve(criticallyDampedSpring());
    m_animation->setStartValue(0.0);
    m_animation->setEndValue(1.0);
    connect(m_animation, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(m_animation, &QVariantAnimation::finished, this, &PictureSlide::finish);
    show();
    raise();
    m_animation->start();
}

PictureSlide::~PictureSlide() {
    if (m_done) std::exchange(m_done, {})();
}

void PictureSlide::finish() {
    hide();
    if (m_done) std::exchange(m_done, {})();
    deleteLater();
}

void PictureSlide::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const bool isForth = m_way == Way::Forth;
    const qreal progress = m_animation->currentValue().toReal();
    const qreal covered = isForth ? progress : 1 - progress; // of what lies below
    const int trailing = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    const QPointF below(-trailing * covered * parallax * width(), 0);
    const QPointF above(trailing * (1 - covered) * width(), 0);
    painter.fillRect(rect(), palette().window());
    painter.drawPixmap(below, isForth ? m_before : m_after);
    painter.fillRect(rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(shade * covered)));
    const qreal edge = trailing > 0 ? above.x() : above.x() + width();
    QLinearGradient shadow(edge, 0, edge - trailing * edgeShadowWidth, 0);
    shadow.setColorAt(0, QColor(0, 0, 0, 40));
    shadow.setColorAt(1, Qt::transparent);
    painter.fillRect(QRectF(trailing > 0 ? edge - edgeShadowWidth : edge, 0, edgeShadowWidth, height()),
                     shadow);
    painter.drawPixmap(above, isForth ? m_after : m_before);
}

bool PictureSlide::eventFilter(QObject* watched, QEvent* event) {
    // The pictures do not fit any more.
    if (watched == parent() && event->type() == QEvent::Resize)
        m_animation->setCurrentTime(slideMilliseconds);
    return QWidget::eventFilter(watched, event);
}

} // namespace platform
