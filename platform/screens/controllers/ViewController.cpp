#include "platform/screens/controllers/ViewController.h"

#include "platform/foundation/MainQueue.h"
#include "platform/screens/controllers/AppearanceTracker.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controllers/PresentationContainer.h"
#include "platform/screens/controllers/SplitViewController.h"

#include <QtCore/QEvent>

namespace platform {

namespace {

template <typename T>
T* nearestAround(const ViewController& controller) {
    for (auto* around = controller.parentViewController(); around; around = around->parentViewController())
        if (auto* found = qobject_cast<T*>(around)) return found;
    return nullptr;
}

// Whether `controller` is `inner` or around it.
bool isAround(const ViewController* controller, const ViewController& inner) {
    for (const auto* at = &inner; at; at = at->parentViewController())
        if (at == controller) return true;
    return false;
}

// What `controller`, or one around it, presents.
PresentationContainer* presentedFrom(const ViewController& controller) {
    for (auto* container : PresentationContainer::in(*controller.window()))
        if (isAround(container->presenter(), controller)) return container;
    return nullptr;
}

} // namespace

ViewController::ViewController(QWidget* parent)
    : QWidget(parent) {
    connect(&m_navigationItem, &NavigationItem::changed, this, [this] { setAccessibleName(title()); });
}

ViewController::~ViewController() {
    Q_EMIT goingAway();
}

void ViewController::setTitle(const QString& title) {
    m_navigationItem.setTitle(title);
}

void ViewController::loadViewIfNeeded() {
    if (std::exchange(m_isViewLoaded, true)) return;
    viewDidLoad();
}

void ViewController::setPreferredContentSize(QSize size) {
    if (size == m_preferredContentSize) return;
    m_preferredContentSize = size;
    Q_EMIT preferredContentSizeChanged();
}

ViewController* ViewController::parentViewController() const {
    if (isWindow()) return nullptr;
    for (QWidget* around = parentWidget(); around; around = around->parentWidget()) {
        if (qobject_cast<PresentationContainer*>(around)) return nullptr;
        if (auto* controller = qobject_cast<ViewController*>(around)) return controller;
        if (around->isWindow()) return nullptr;
    }
    return nullptr;
}

NavigationController* ViewController::navigationController() const {
    return nearestAround<NavigationController>(*this);
}

SplitViewController* ViewController::splitViewController() const {
    return nearestAround<SplitViewController>(*this);
}

void ViewController::present(std::unique_ptr<ViewController> controller, Animated animated,
                             std::function<void()> completion) {
    PresentationContainer::present(*this, std::move(controller), animated, std::move(completion));
}

void ViewController::dismiss(Animated animated, std::function<void()> completion) {
    auto* presented = presentedFrom(*this);
    if (!presented) presented = PresentationContainer::around(*this);
    if (presented)
        presented->dismissFromHere(animated, std::move(completion));
    else if (completion)
        dispatchToMain(std::move(completion));
}

ViewController* ViewController::presentedViewController() const {
    const auto* container = presentedFrom(*this);
    return container ? container->controller() : nullptr;
}

ViewController* ViewController::presentingViewController() const {
    const auto* container = PresentationContainer::around(*this);
    return container ? container->presenter() : nullptr;
}

void ViewController::cancelPresentation() {
    dismiss();
}

bool ViewController::event(QEvent* event) {
    // Ahead of all others, so that what viewDidLoad adds comes up with the rest.
    if (event->type() == QEvent::Polish) loadViewIfNeeded();
    const bool isHandled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::Show:
        if (!event->spontaneous()) AppearanceTracker::shown(*this);
        break;
    case QEvent::Hide:
        if (!event->spontaneous()) AppearanceTracker::hidden(*this);
        break;
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        if (m_isViewLoaded) viewDidLayoutSubviews();
        break;
    default:
        break;
    }
    return isHandled;
}

} // namespace platform
