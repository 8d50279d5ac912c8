#include "Quillet/browsing/ColorPicker.h"

#include "Quillet/browsing/ColorCircle.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>

namespace quillet {

ColorPicker::ColorPicker(std::span<const TagColor> validColors, QWidget* parent)
    : QScrollArea(parent)
    , m_circles(new QButtonGroup(this)) {
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    viewport()->setAutoFillBackground(false);

    auto content = std::make_unique<QWidget>();
    content->setAccessibleName(QStringLiteral("Color"));
    auto* row = new QHBoxLayout(content.get());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (std::size_t index = 0; index < validColors.size(); ++index) {
        auto* circle = new ColorCircle(validColors[index], content.get());
        circle->setChecked(index == 0);
        circle->installEventFilter(this);
        m_circles->addButton(circle, static_cast<int>(index));
        row->addWidget(circle);
    }
    row->addStretch();
    setWidget(content.release()); // it is the scroll area's now
    widget()->setAutoFillBackground(false);
}

int ColorPicker::colorIndex() const {
    return m_circles->checkedId();
}

QSize ColorPicker::sizeHint() const {
    return {widget()->sizeHint().width(), minimumSizeHint().height()};
}

// With room for the scroll bar where there is none for all circles.
QSize ColorPicker::minimumSizeHint() const {
    const QSize circles = widget()->sizeHint();
    const bool scrolls = circles.width() > width();
    return {0, circles.height() + (scrolls ? horizontalScrollBar()->sizeHint().height() : 0)};
}

void ColorPicker::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) updateGeometry();
}

bool ColorPicker::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) ensureWidgetVisible(static_cast<QWidget*>(watched), 8, 0);
    return QScrollArea::eventFilter(watched, event);
}

// A plain wheel goes sideways as well; at the end the form around this scrolls.
void ColorPicker::wheelEvent(QWheelEvent* event) {
    QScrollBar& bar = *horizontalScrollBar();
    const int before = bar.value();
    const QPoint turned = event->angleDelta();
    bar.setValue(before - (turned.x() ? turned.x() : turned.y()));
    event->setAccepted(bar.value() != before);
}

} // namespace quillet
