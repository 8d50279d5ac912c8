#pragma once

#include "Quillet/browsing/TagColors.h"

#include <QtWidgets/QScrollArea>

#include <span>

class QButtonGroup;

namespace quillet {

// A row of circles, one for each colour, of which one is marked; scrolls sideways where there is no room for
// all. Arrow keys move between the circles. Main thread.
class ColorPicker : public QScrollArea {
    Q_OBJECT

public:
    // `validColors` outlives this. The first colour is marked.
    explicit ColorPicker(std::span<const TagColor> validColors, QWidget* parent = nullptr);

    int colorIndex() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QButtonGroup* m_circles;
};

} // namespace quillet
