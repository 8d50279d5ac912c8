#pragma once

#include "Halcyonix/Backdrop.h"

namespace halcyonix {

// Grays out what lies behind a card.
class GrayView : public Backdrop {
    Q_OBJECT

public:
    using Backdrop::Backdrop;

    // Of the gray, from 0 to 1.
    qreal alpha() const { return m_alpha; }

    void setAlpha(qreal alpha);

protected:
    void paintVeil(QPainter& painter) override;

private:
    qreal m_alpha = 0;
};

} // namespace halcyonix
