#pragma once

#include <QtCore/QVariantAnimation>
#include <QtWidgets/QAbstractButton>

namespace quillet {

// A small chevron that points up while it is checked, and has turned by pi while it is not. Main thread.
class DisclosureToggle : public QAbstractButton {
    Q_OBJECT

public:
    explicit DisclosureToggle(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override; // Return presses, as Space does
    void paintEvent(QPaintEvent* event) override;

private:
    void turn(bool isChecked);

    qreal m_angle = 0; // radians
    QVariantAnimation m_animation;
};

} // namespace quillet
