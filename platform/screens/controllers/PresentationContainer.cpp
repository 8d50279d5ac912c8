#include "platform/screens/controllers/PresentationContainer.h"

#include "platform/foundation/FatalError.h"
#include "platform/foundation/MainQueue.h"
#include "platform/screens/appearance/Motion.h"
#include "platform/screens/controllers/FocusScope.h"
#include "platform/screens/controllers/PresentationAccessibility.h"
#include "platform/screens/controllers/StandardTransitions.h"
#include "platform/screens/controllers/ViewController.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

std::shared_ptr<ModalTransition> transitionOf(const ViewController& controller) {
    if (controller.modalPresentationStyle != ModalPresentationStyle::Custom)
        return standardTransition(controller);
    if (!controller.modalTransition) fatalError("A custom presentation has no transition");
    return controller.modalTransition;
}

bool isInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
        return true;
    default:
        return false;
    }
}

void runLater(const PresentationContainer::Completion& completion) {
    if (completion) dispatchToMain(completion);
}

} // namespace

void PresentationContainer::present(ViewController& presenter, std::unique_ptr<ViewController> controller,
                                    Animated animated, Completion completion) {
    auto container =
        std::unique_ptr<PresentationContainer>(new PresentationContainer(presenter, std::move(controller)));
    container.release()->start(animated, std::move(completion)); // the window owns it
}

std::vector<PresentationContainer*> PresentationContainer::in(const QWidget& window) {
    std::vector<PresentationContainer*> containers;
    for (QObject* child : window.children())
        if (auto* container = qobject_cast<PresentationContainer*>(child);
            container && container->m_phase < Phase::Dismissing)
            containers.push_back(container);
    return containers;
}

PresentationContainer* PresentationContainer::around(const QWidget& widget) {
    for (const QWidget* at = &widget; at && !at->isWindow(); at = at->parentWidget())
        if (auto* container = qobject_cast<const PresentationContainer*>(at))
            return const_cast<PresentationContainer*>(container);
    return nullptr;
}

PresentationContainer::PresentationContainer(ViewController& presenter,
                                             std::unique_ptr<ViewController> controller)
    : QWidget(presenter.window())
    , m_presenter(&presenter)
    , m_controller(controller.release())
    , m_transition(transitionOf(*m_controller))
    , m_returnFocus(QApplication::focusWidget()) {
    describeAsDialogs();
    m_controller->setParent(this);
    m_controller->show();
    setAttribute(Qt::WA_NoMousePropagation);
    setFocusPolicy(Qt::StrongFocus);
    if (m_returnFocus && !window()->isAncestorOf(m_returnFocus)) m_returnFocus = nullptr;
    silenceShortcutsBehind();

    window()->installEventFilter(this);
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { keepFocus(now); });
    connect(m_presenter, &ViewController::goingAway, this, &PresentationContainer::presenterGoesAway);
    connect(m_controller, &ViewController::goingAway, this, &PresentationContainer::controllerGoesAway);
    connect(m_controller, &ViewController::preferredContentSizeChanged, this, &PresentationContainer::layOut);
}

PresentationContainer::~PresentationContainer() {
    qApp->disconnect(this);
    if (m_controller) m_controller->disconnect(this);
}

void PresentationContainer::presenterGoesAway() {
    const bool isWindow = m_presenter == window();
    m_presenter = nullptr;
    if (!isWindow) dismissFromHere(Animated::No, {}); // else this goes with it
}

void PresentationContainer::controllerGoesAway() {
    m_transition.reset();
    m_hold.reset();
    m_controller = nullptr;
    dismissFromHere(Animated::No, {});
}

void PresentationContainer::start(Animated animated, Completion completion) {
    m_presented = std::move(completion);
    m_controller->loadViewIfNeeded();
    setAccessibleName(m_controller->title());
    m_hold = std::make_unique<AppearanceTracker::Hold>(*m_controller, animated);
    setGeometry(window()->rect());
    m_transition->layOut(*this, *m_controller);
    show();
    raise();
    if (!m_controller) return;
    focusInto(*m_controller);
    m_transition->present(context(animated, &PresentationContainer::didPresent));
}

TransitionContext PresentationContainer::context(Animated animated,
                                                 void (PresentationContainer::*complete)()) {
    return {.container = this,
            .controller = m_controller,
            .animated = reducesMotion() ? Animated::No : animated,
            .complete = [self = QPointer(this), complete] {
                if (self) (self->*complete)();
            }};
}

void PresentationContainer::didPresent() {
    if (m_phase != Phase::Presenting) return;
    m_phase = Phase::Up;
    m_hold.reset();
    runLater(std::exchange(m_presented, {}));
}

void PresentationContainer::dismissFromHere(Animated animated, Completion completion) {
    const auto all = in(*window());
    const auto first = std::ranges::find(all, this);
    // From the top down, so that the focus ends where it was before the lowest came.
    std::vector<QPointer<PresentationContainer>> above(all.rbegin(), std::make_reverse_iterator(first));
    for (const auto& container : above)
        if (container && container != this) container->dismiss(animated, {});
    dismiss(animated, std::move(completion));
}

void PresentationContainer::dismiss(Animated animated, Completion completion) {
    if (m_phase == Phase::Gone) return runLater(completion);
    m_dismissed.push_back(std::move(completion));
    if (m_phase == Phase::Dismissing && m_transition) return;
    didPresent(); // what comes to rest here rests no more
    const bool hadFocus = isTopmost();
    m_phase = Phase::Dismissing;
    if (hadFocus) giveFocusBack();
    if (!m_transition) return didDismiss();
    m_hold = std::make_unique<AppearanceTracker::Hold>(*m_controller, animated);
    AppearanceTracker::leave(*m_controller);
    m_transition->dismiss(context(animated, &PresentationContainer::didDismiss));
}

void PresentationContainer::didDismiss() {
    if (m_phase != Phase::Dismissing) return;
    m_phase = Phase::Gone;
    hide();
    m_hold.reset();
    for (const auto& completion : std::exchange(m_dismissed, {}))
        runLater(completion);
    // Behind the word that the controller has disappeared.
    QMetaObject::invokeMethod(this, &QObject::deleteLater, Qt::QueuedConnection);
}

bool PresentationContainer::isTopmost() const {
    const auto all = in(*window());
    return !all.empty() && all.back() == this;
}

// What lies behind cannot take the focus. Who was given it meanwhile gets it when this goes.
void PresentationContainer::keepFocus(QWidget* now) {
    if (!now || now->window() != window() || !isTopmost() || now == this || isAncestorOf(now)) return;
    m_returnFocus = now;
    focusInto(m_controller ? static_cast<QWidget&>(*m_controller) : *this);
}

void PresentationContainer::giveFocusBack() {
    for (const auto& shortcut : std::exchange(m_silenced, {}))
        if (shortcut) static_cast<QShortcut*>(shortcut.data())->setEnabled(true);
    if (m_returnFocus && m_returnFocus->isVisible())
        m_returnFocus->setFocus(Qt::OtherFocusReason);
    else if (m_presenter && m_presenter->isVisible())
        focusInto(*m_presenter);
}

void PresentationContainer::silenceShortcutsBehind() {
    for (auto* shortcut : window()->findChildren<QShortcut*>()) {
        if (!shortcut->isEnabled() || isAncestorOf(qobject_cast<QWidget*>(shortcut->parent()))) continue;
        shortcut->setEnabled(false);
        m_silenced.emplace_back(shortcut);
    }
}

void PresentationContainer::layOut() {
    if (m_transition && m_controller) m_transition->layOut(*this, *m_controller);
}

// The keys and wheel turns that nobody in here wants are not for those behind.
bool PresentationContainer::event(QEvent* event) {
    const bool isHandled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::LayoutRequest:
        layOut();
        return isHandled;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        event->accept();
        return true;
    default:
        return isHandled;
    }
}

bool PresentationContainer::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window() && event->type() == QEvent::Resize) setGeometry(window()->rect());
    if (m_phase >= Phase::Dismissing && isInput(event->type()) && watched->isWidgetType() &&
        isAncestorOf(static_cast<QWidget*>(watched)))
        return true; // what is on its way out has been answered
    // Marked letters of labels and buttons behind, and shortcuts that came later.
    if (event->type() == QEvent::Shortcut && isTopmost()) {
        auto* widget = qobject_cast<QWidget*>(watched->isWidgetType() ? watched : watched->parent());
        if (widget && widget->window() == window() && !isAncestorOf(widget)) return true;
    }
    return QWidget::eventFilter(watched, event);
}

void PresentationContainer::keyPressEvent(QKeyEvent* event) {
    // A key that is held does not go on to what lies below.
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat() && isTopmost() && m_controller)
        m_controller->cancelPresentation();
}

void PresentationContainer::mousePressEvent(QMouseEvent* event) {
    const bool isBeside = m_controller && !m_controller->geometry().contains(event->pos());
    if (isBeside && isTopmost()) m_controller->cancelPresentation();
}

void PresentationContainer::resizeEvent(QResizeEvent* /*event*/) {
    layOut();
    // Once more when what lies behind, an anchor among it, has found its place.
    QCoreApplication::postEvent(this, std::make_unique<QEvent>(QEvent::LayoutRequest).release());
}

bool PresentationContainer::focusNextPrevChild(bool next) {
    stepFocus(*this, next ? FocusStep::Next : FocusStep::Previous);
    return true;
}

} // namespace platform
