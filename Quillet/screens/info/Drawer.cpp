#include "Quillet/screens/info/Drawer.h"

#include "platform/screens/appearance/Motion.h"

#include <QtCore/QEvent>

namespace quillet {

Drawer::Drawer(std::unique_ptr<QWidget> content, QWidget* parent)
    : QWidget(parent)
    , m_content(content.release()) {
    m_content->setParent(this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& share) { setShare(share.toReal()); });
}

void Drawer::setOpen(bool isOpen) {
    m_animation.stop();
    m_animation.setStartValue(m_share);
    m_animation.setEndValue(isOpen ? 1.0 : 0.0);
    m_animation.setDuration(platform::reducesMotion() || !isVisible() ? 0 : milliseconds);
    m_animation.start();
}

QSize Drawer::sizeHint() const {
    const QSize content = m_content->sizeHint();
    return {content.width(), qRound(content.height() * m_share)};
}

bool Drawer::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        placeContent();
    }
    return QWidget::event(event);
}

void Drawer::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeContent();
}

void Drawer::setShare(qreal share) {
    m_share = share;
    m_content->setVisible(share > 0); // what cannot be seen takes no focus
    updateGeometry();
}

void Drawer::placeContent() {
    const int full = m_content->sizeHint().height();
    m_content->setGeometry(0, height() - full, width(), full);
}

} // namespace quillet
