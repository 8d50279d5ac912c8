#pragma once

#include "platform/screens/controllers/CardPlacement.h"

#include <QtWidgets/QWidget>

namespace platform {

// What lies around a presented controller and under it: the dimmed window, the card and its shadow. A child
// of the presentation's container, which it covers; main thread.
class CardBackdrop : public QWidget {
    Q_OBJECT

public:
    explicit CardBackdrop(QWidget& container);

    // `progress` goes from 0, out of sight, to 1, at rest.
    void show(const CardPlacement& placement, QPoint offset, qreal progress);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    CardPlacement m_placement;
    QPoint m_offset;
    qreal m_progress = 0;
};

} // namespace platform
