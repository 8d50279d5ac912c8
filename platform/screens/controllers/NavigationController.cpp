#include "platform/screens/controllers/NavigationController.h"

#include "platform/foundation/FatalError.h"
#include "platform/screens/controllers/NavigationBar.h"
#include "platform/screens/controllers/PresentationContainer.h"
#include "platform/screens/controllers/ScreenChange.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace platform {

namespace {

// The innermost navigation that a widget is part of; what presents it is not.
const NavigationController* navigationOf(const QWidget* widget) {
    for (; widget && !qobject_cast<const PresentationContainer*>(widget); widget = widget->parentWidget()) {
        if (auto* navigation = qobject_cast<const NavigationController*>(widget)) return navigation;
        if (widget->isWindow()) break;
    }
    return nullptr;
}

} // namespace

NavigationController::NavigationController(std::unique_ptr<ViewController> root, QWidget* parent)
    : ViewController(parent)
    , m_bar(new NavigationBar(this))
    , m_stage(new QWidget(this)) {
    if (!root) fatalError("A navigation controller has no root");
    auto* stage = new QVBoxLayout(m_stage);
    stage->setContentsMargins(0, 0, 0, 0);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_bar);
    column->addWidget(m_stage, 1);
    connect(m_bar, &NavigationBar::backRequested, this, &NavigationController::goBack);
    auto* back = new QShortcut(QKeySequence::Back, this);
    back->setContext(Qt::WidgetWithChildrenShortcut);
    connect(back, &QShortcut::activated, this, &NavigationController::goBack);
    qApp->installEventFilter(this); // mouse buttons that the screens take for presses
    m_viewControllers.push_back(root.get());
    put(*root.release());
    showBar();
}

NavigationController::~NavigationController() {
    for (auto* controller : m_viewControllers) {
        controller->disconnect(this);
        controller->navigationItem().disconnect(this);
    }
}

ViewController* NavigationController::topViewController() const {
    return m_viewControllers.empty() ? nullptr : m_viewControllers.back();
}

void NavigationController::put(ViewController& controller) {
    m_stage->layout()->addWidget(&controller);
    connect(&controller.navigationItem(), &NavigationItem::changed, this, [this] { showBar(); });
    connect(&controller, &ViewController::goingAway, this, [this, gone = &controller] {
        std::erase(m_viewControllers, gone);
        if (!topViewController()) return;
        topViewController()->show();
        showBar();
    });
}

void NavigationController::pushViewController(std::unique_ptr<ViewController> controller, Animated animated) {
    auto& from = *topViewController();
    auto& to = *controller.release(); // the stage owns it
    to.hide();
    put(to);
    m_viewControllers.push_back(&to);
    run({.view = *this,
         .from = from,
         .to = to,
         .way = PictureSlide::Way::Forth,
         .animated = animated,
         .settle = [this] { showBar(); }});
}

void NavigationController::popViewController(Animated animated) {
    if (m_viewControllers.size() < 2) return;
    auto& from = *topViewController();
    m_viewControllers.pop_back();
    from.disconnect(this);
    from.navigationItem().disconnect(this);
    run({.view = *this,
         .from = from,
         .to = *topViewController(),
         .way = PictureSlide::Way::Back,
         .animated = animated,
         .settle = [this] { showBar(); },
         .done =
             [from = QPointer(&from)] {
                 // Behind the word that it has disappeared.
                 if (from) QMetaObject::invokeMethod(from, &QObject::deleteLater, Qt::QueuedConnection);
             }});
}

void NavigationController::showBar() {
    auto& top = *topViewController();
    std::optional<QString> backTitle;
    if (m_viewControllers.size() > 1)
        backTitle = m_viewControllers[m_viewControllers.size() - 2]->title();
    else if (m_wayBack)
        backTitle = m_wayBack->title;
    m_bar->showItem(top.navigationItem(), backTitle);
    setAccessibleName(top.title());
    setFocusProxy(&top); // rather than a button of the bar
}

bool NavigationController::isNavigationBarHidden() const {
    return m_bar->isHidden();
}

void NavigationController::setNavigationBarHidden(bool isHidden) {
    m_bar->setHidden(isHidden);
}

void NavigationController::setWayBackFromRoot(std::optional<WayBack> wayBack) {
    m_wayBack = std::move(wayBack);
    showBar();
}

void NavigationController::goBack() {
    if (m_viewControllers.size() > 1)
        popViewController();
    else if (m_wayBack)
        m_wayBack->go();
}

void NavigationController::cancelPresentation() {
    if (m_viewControllers.size() > 1)
        popViewController();
    else
        topViewController()->cancelPresentation();
}

bool NavigationController::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::MouseButtonPress ||
        static_cast<QMouseEvent*>(event)->button() != Qt::BackButton)
        return ViewController::eventFilter(watched, event);
    if (navigationOf(qobject_cast<QWidget*>(watched)) != this) return false;
    goBack();
    return true;
}

} // namespace platform
