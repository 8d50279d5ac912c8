#include "platform/screens/controllers/AppearanceTracker.h"

#include "platform/screens/controllers/ViewController.h"

#include <QtCore/QPointer>

#include <vector>

namespace platform {

void AppearanceTracker::shown(ViewController& controller) {
    if (controller.m_appearance == State::Appearing || controller.m_appearance == State::Up) return;
    // The toolkit shows children ahead of those around them.
    auto* around = controller.parentViewController();
    if (around && around->isVisible() && around->m_appearance == State::Gone) shown(*around);
    controller.loadViewIfNeeded();
    controller.m_appearance = State::Appearing;
    controller.m_appearsAnimated = animatedOf(controller);
    settleLater(controller);
    controller.viewWillAppear(controller.m_appearsAnimated);
}

void AppearanceTracker::hidden(ViewController& controller) {
    willDisappear(controller);
    settleLater(controller);
}

void AppearanceTracker::leave(ViewController& controller) {
    willDisappear(controller);
    // What is told may delete another.
    std::vector<QPointer<ViewController>> inside;
    for (auto* controllerInside : controller.findChildren<ViewController*>())
        inside.emplace_back(controllerInside);
    for (const auto& each : inside)
        if (each) willDisappear(*each);
}

void AppearanceTracker::willDisappear(ViewController& controller) {
    if (controller.m_appearance != State::Appearing && controller.m_appearance != State::Up) return;
    controller.m_appearance = State::Disappearing;
    controller.m_appearsAnimated = animatedOf(controller);
    controller.viewWillDisappear(controller.m_appearsAnimated);
}

bool AppearanceTracker::isHeld(const ViewController& controller) {
    for (const auto* around = &controller; around; around = around->parentViewController())
        if (around->m_holds > 0) return true;
    return false;
}

Animated AppearanceTracker::animatedOf(const ViewController& controller) {
    for (const auto* around = &controller; around; around = around->parentViewController())
        if (around->m_animatedHolds > 0) return Animated::Yes;
    return Animated::No;
}

// The end of a hold does so anyway.
void AppearanceTracker::settleLater(ViewController& controller) {
    if (isHeld(controller)) return;
    QMetaObject::invokeMethod(&controller, [&controller] { settle(controller); }, Qt::QueuedConnection);
}

void AppearanceTracker::settle(ViewController& controller) {
    if (isHeld(controller)) return; // since it was put off
    if (controller.m_appearance == State::Appearing) {
        controller.m_appearance = State::Up;
        controller.viewDidAppear(controller.m_appearsAnimated);
    } else if (controller.m_appearance == State::Disappearing && !controller.isVisible()) {
        controller.m_appearance = State::Gone;
        controller.viewDidDisappear(controller.m_appearsAnimated);
    }
}

AppearanceTracker::Hold::Hold(ViewController& controller, Animated animated)
    : m_controller(&controller)
    , m_animated(animated == Animated::Yes ? 1 : 0) {
    ++m_controller->m_holds;
    m_controller->m_animatedHolds += m_animated;
}

AppearanceTracker::Hold::~Hold() {
    if (!m_controller) return;
    --m_controller->m_holds;
    m_controller->m_animatedHolds -= m_animated;
    settleLater(*m_controller);
    for (auto* inside : m_controller->findChildren<ViewController*>())
        settleLater(*inside);
}

} // namespace platform
