#include "platform/screens/controls/PressSqueeze.h"

#include "platform/screens/appearance/Motion.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QGraphicsEffect>

namespace platform {

class PressSqueeze::Effect : public QGraphicsEffect {
public:
    using QGraphicsEffect::QGraphicsEffect;

    // At full size the button paints itself as if there were no effect.
    void setScale(qreal scale) {
        m_scale = scale;
        setEnabled(scale != 1);
        update();
    }

protected:
    void draw(QPainter* painter) override {
        QPoint offset;
        const QPixmap picture = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
        const QPointF center = sourceBoundingRect().center();
        painter->setRenderHint(QPainter::SmoothPixmapTransform);
        painter->translate(center);
        painter->scale(m_scale, m_scale);
        painter->drawPixmap(offset - center, picture);
    }

private:
    qreal m_scale = 1;
};

PressSqueeze::PressSqueeze(QAbstractButton& button, PressStyle style)
    : QObject(&button)
    , m_effect(new Effect(&button))
    , m_style(style) {
    m_effect->setScale(1);
    button.setGraphicsEffect(m_effect);
    button.installEventFilter(this);
    m_animation.setDuration(style.milliseconds);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { setScale(value.toReal()); });
    connect(&button, &QAbstractButton::pressed, this, [this] { animateTo(m_style.pressedScale); });
    connect(&button, &QAbstractButton::released, this, [this] { animateTo(1); });
}

bool PressSqueeze::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
    QKeyEvent space(event->type(), Qt::Key_Space, key.modifiers(), QString(), key.isAutoRepeat());
    return watched->event(&space);
}

void PressSqueeze::animateTo(qreal scale) {
    m_animation.stop();
    if (reducesMotion()) {
        setScale(scale);
        return;
    }
    m_animation.setStartValue(m_scale);
    m_animation.setEndValue(scale);
    m_animation.start();
}

void PressSqueeze::setScale(qreal scale) {
    m_scale = scale;
    m_effect->setScale(scale);
}

} // namespace platform
