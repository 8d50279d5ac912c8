#include "platform/screens/controllers/PresentationAccessibility.h"

#include "platform/screens/controllers/PresentationContainer.h"

#include <QtWidgets/QAccessibleWidget>

namespace platform {

namespace {

class DialogInterface : public QAccessibleWidget {
public:
    explicit DialogInterface(QWidget* container)
        : QAccessibleWidget(container, QAccessible::Dialog) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.modal = true;
        return state;
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    auto* container = qobject_cast<PresentationContainer*>(object);
    // The toolkit's registry takes ownership.
    return container ? std::make_unique<DialogInterface>(container).release() : nullptr;
}

} // namespace

void describeAsDialogs() {
    static const bool isInstalled = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    static_cast<void>(isInstalled);
}

} // namespace platform
