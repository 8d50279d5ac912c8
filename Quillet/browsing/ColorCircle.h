#pragma once

#include "Quillet/browsing/TagColors.h"

#include <QtWidgets/QRadioButton>

namespace quillet {

// One colour to choose. When chosen it has a ring and a check mark. 44 by 44 points. Main thread.
class ColorCircle : public QRadioButton {
    Q_OBJECT

public:
    explicit ColorCircle(const TagColor& color, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    bool hitButton(const QPoint& at) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    platform::Asset m_color;
};

} // namespace quillet
