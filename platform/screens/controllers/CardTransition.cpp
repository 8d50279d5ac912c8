#include "platform/screens/controllers/CardTransition.h"

#include "platform/screens/appearance/Motion.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QGraphicsOpacityEffect>

namespace platform {

namespace {

constexpr int slideMilliseconds = 420;
constexpr int fadeMilliseconds = 200;

QRegion regionOf(const QPainterPath& path, QPoint origin) {
    return QRegion(path.translated(-origin).toFillPolygon().toPolygon());
}

} // namespace

void CardTransition::layOut(QWidget& container, ViewController& controller) {
    m_controller = &controller;
    if (!m_backdrop) m_backdrop = new CardBackdrop(container);
    m_placement = m_placementOf(container.rect(), controller);
    if (m_placement.inside.isEmpty())
        controller.clearMask();
    else
        controller.setMask(regionOf(m_placement.inside, m_placement.content.topLeft()));
    apply();
}

void CardTransition::present(const TransitionContext& context) {
    move(context, 1);
}

void CardTransition::dismiss(const TransitionContext& context) {
    move(context, 0);
}

// From wherever it is, also in the midst of another movement.
void CardTransition::move(const TransitionContext& context, qreal to) {
    for (auto* other : m_backdrop->findChildren<QVariantAnimation*>()) {
        other->disconnect(); // it may be the one whose step has led here
        other->stop();
        other->deleteLater();
    }
    if (context.animated == Animated::No) {
        m_progress = to;
        apply();
        context.complete();
        return;
    }
    auto* animation = new QVariantAnimation(m_backdrop);
    const bool fades = m_placement.entrance == CardPlacement::Entrance::Fade;
    animation->setDuration(fades ? fadeMilliseconds : slideMilliseconds);
    animation->setEasingCurve(fades ? QEasingCurve(QEasingCurve::InOutQuad) : criticallyDampedSpring());
    animation->setStartValue(m_progress);
    animation->setEndValue(to);
    QObject::connect(animation, &QVariantAnimation::valueChanged, m_backdrop, [this](const QVariant& value) {
        m_progress = value.toReal();
        apply();
    });
    QObject::connect(animation, &QVariantAnimation::finished, m_backdrop, context.complete);
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void CardTransition::apply() {
    if (!m_controller) return;
    const bool rises = m_placement.entrance == CardPlacement::Entrance::FromBelow;
    const int way = m_backdrop->parentWidget()->height() - m_placement.content.top();
    const QPoint offset(0, rises ? qRound((1 - m_progress) * way) : 0);
    m_controller->setGeometry(m_placement.content.translated(offset));
    m_backdrop->show(m_placement, offset, m_progress);
    if (!rises) fade(m_progress);
}

void CardTransition::fade(qreal opacity) {
    auto* effect = qobject_cast<QGraphicsOpacityEffect*>(m_controller->graphicsEffect());
    if (opacity >= 1) return m_controller->setGraphicsEffect(nullptr);
    if (!effect) m_controller->setGraphicsEffect(effect = new QGraphicsOpacityEffect(m_controller));
    effect->setOpacity(opacity);
}

} // namespace platform
