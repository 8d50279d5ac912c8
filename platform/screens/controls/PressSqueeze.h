#pragma once

#include <QtCore/QVariantAnimation>

class QAbstractButton;

namespace platform {

// How a button answers a press: shrunk to a fraction of its size, on the way in and out for as long.
struct PressStyle {
    qreal pressedScale = 1;
    int milliseconds = 0;
};

// Shrinks a button with all that it holds while it is pressed, by a pointer or a key, and lets Return press
// it as Space does. Takes the button's graphics effect. Main thread.
class PressSqueeze : public QObject {
    Q_OBJECT

public:
    // Owned by the button.
    PressSqueeze(QAbstractButton& button, PressStyle style);

    qreal scale() const { return m_scale; }

    QVariantAnimation& animation() { return m_animation; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Effect;

    void animateTo(qreal scale);
    void setScale(qreal scale);

    Effect* m_effect;
    QVariantAnimation m_animation;
    PressStyle m_style;
    qreal m_scale = 1;
};

} // namespace platform
