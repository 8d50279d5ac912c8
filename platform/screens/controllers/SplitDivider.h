#pragma once

#include <QtWidgets/QWidget>

namespace platform {

// The line between two columns, with room around it to take hold of. Main thread.
class SplitDivider : public QWidget {
    Q_OBJECT

public:
    explicit SplitDivider(QWidget* parent);

Q_SIGNALS:
    // Dragged to this place of the parent.
    void draggedTo(int x);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace platform
