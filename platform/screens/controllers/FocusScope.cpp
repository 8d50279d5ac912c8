#include "platform/screens/controllers/FocusScope.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace platform {

namespace {

QWidget* neighbour(const QWidget& widget, FocusStep step) {
    return step == FocusStep::Next ? widget.nextInFocusChain() : widget.previousInFocusChain();
}

// The next one inside `scope` that takes the focus; null where there is none but `from`.
QWidget* nextInside(const QWidget& scope, const QWidget& from, FocusStep step) {
    for (QWidget* at = neighbour(from, step); at && at != &from; at = neighbour(*at, step))
        if (at != &scope && scope.isAncestorOf(at) && takesTabFocus(*at)) return at;
    return nullptr;
}

// Follows the proxies to the widget that really takes the focus.
QWidget* endOfProxies(QWidget* widget) {
    while (widget && widget->focusProxy())
        widget = widget->focusProxy();
    return widget;
}

} // namespace

namespace {

bool canTakeFocus(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && widget.focusPolicy() != Qt::NoFocus;
}

} // namespace

bool takesTabFocus(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) &&
           !widget.focusProxy();
}

void focusInto(QWidget& scope) {
    QWidget* target = scope.focusWidget();
    if (!target || !canTakeFocus(*target)) target = endOfProxies(&scope);
    if (!canTakeFocus(*target)) {
        QWidget* inside = nextInside(*target, *target, FocusStep::Next);
        target = inside ? inside : nextInside(scope, scope, FocusStep::Next);
    }
    (target ? target : &scope)->setFocus(Qt::OtherFocusReason);
}

void stepFocus(QWidget& scope, FocusStep step) {
    const QWidget* from = QApplication::focusWidget();
    if (!from || !scope.isAncestorOf(from)) from = &scope;
    if (QWidget* to = nextInside(scope, *from, step))
        to->setFocus(step == FocusStep::Next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

} // namespace platform
