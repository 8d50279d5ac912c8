#include "platform/screens/controllers/HostingController.h"

#include <QtWidgets/QVBoxLayout>

namespace platform {

HostingController::HostingController(std::unique_ptr<QWidget> rootView, QWidget* parent)
    : ViewController(parent)
    , m_rootView(rootView.get()) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(rootView.release());
    setFocusProxy(m_rootView);
}

} // namespace platform
