#pragma once

#include <QtWidgets/QWidget>

namespace quillet {

// A rounded field with the program's gradient, from its leading upper corner to the other end. Lets presses
// through to what it lies on.
class GradientView : public QWidget {
    Q_OBJECT

public:
    static constexpr double cornerRadius = 12; // points

    explicit GradientView(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace quillet
