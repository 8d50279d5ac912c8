#pragma once

#include "Halcyonix/Backdrop.h"

#include <QtGui/QPixmap>

namespace halcyonix {

// Covers a window with a blurred picture of itself, taken when this is shown or changes its size.
class BlurView : public Backdrop {
    Q_OBJECT

public:
    using Backdrop::Backdrop;

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintVeil(QPainter& painter) override;

private:
    void takePicture();

    QPixmap m_picture; // small: drawing it large is the blur
};

} // namespace halcyonix
