#include "Halcyonix/SpringTransition.h"

#include "platform/screens/appearance/ContinuousCorners.h"
#include "platform/screens/controllers/ViewController.h"

namespace halcyonix {

namespace {

constexpr int cornerRadius = 15; // points

// A card that stands on the container's lower edge, or dives below it, has its lower corners out of sight.
QRect shapeOf(const QRect& card, const QRect& container) {
    return card.bottom() < container.bottom() ? card : card.adjusted(0, 0, 0, 2 * cornerRadius);
}

void clip(QWidget& controller, const QRect& shape) {
    const QRegion region =
        platform::continuousRoundedRegion(shape.translated(-controller.pos()), cornerRadius) &
        controller.rect();
    if (controller.mask() != region) controller.setMask(region);
}

} // namespace

void SpringTransition::present(const platform::TransitionContext& context) {
    auto& controller = *context.controller;
    m_grayView = new GrayView(context.container);
    m_grayView->stackUnder(&controller);
    m_grayView->show();
    QObject::connect(m_grayView, &QAbstractButton::clicked, &controller,
                     &platform::ViewController::cancelPresentation);
    m_animator = makeAnimator(AnimationType::Present);
    m_animator->fromViewController = controller.presentingViewController();
    m_animator->toViewController = &controller;
    m_state = {.offset = m_animator->outOffset(context.container->size()), .alpha = 0};
    layOut(*context.container, controller);
    run(context, SpringAnimator::restState);
}

void SpringTransition::dismiss(const platform::TransitionContext& context) {
    m_animator = makeAnimator(AnimationType::Dismiss);
    m_animator->fromViewController = context.controller;
    m_animator->toViewController = context.controller->presentingViewController();
    run(context, {.offset = m_animator->outOffset(context.container->size()), .alpha = 0});
}

void SpringTransition::run(const platform::TransitionContext& context, SpringAnimator::State to) {
    const auto place = [this, controller = QPointer(context.controller)](SpringAnimator::State state) {
        if (!controller) return;
        m_state = state;
        layOut(*controller->parentWidget(), *controller);
    };
    m_animator->run(m_state, to, context.animated, place, context.complete);
}

void SpringTransition::layOut(QWidget& container, platform::ViewController& controller) {
    if (!m_grayView) return; // its state begins with the presentation
    const QRect frame =
        m_animator->restFrame(container.size(), controller).translated(0, qRound(m_state.offset));
    controller.setGeometry(frame);
    const QRect shape = shapeOf(frame, container.rect());
    clip(controller, shape);
    m_grayView->setGeometry(container.rect());
    m_grayView->setAlpha(m_state.alpha);
    m_grayView->setCard(shape, cornerRadius, platform::Asset::BackgroundGrey);
}

} // namespace halcyonix
