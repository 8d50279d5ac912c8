#include "Quillet/screens/info/ChipRow.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace quillet {

namespace {

// Points.
constexpr int trailingInset = 60; // so that the button covers no chip
constexpr int leadingInset = 13;  // chips have three more for their ring
constexpr int spacing = 4;

} // namespace

ChipRow::ChipRow(QWidget* endButton, QWidget* parent)
    : QScrollArea(parent)
    , m_endButton(endButton) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    viewport()->setAutoFillBackground(false);
    auto* content = new QWidget;
    m_row = new QHBoxLayout(content);
    m_row->setContentsMargins(leadingInset, 0, trailingInset, 0);
    m_row->setSpacing(spacing);
    m_row->addStretch();
    setWidget(content); // which owns it now
    content->setAutoFillBackground(false);
    m_endButton->setParent(this);
}

void ChipRow::setChips(const std::vector<QWidget*>& chips) {
    for (auto* chip : m_chips) {
        m_row->removeWidget(chip);
        if (std::ranges::find(chips, chip) != chips.end()) continue;
        chip->hide();
        chip->deleteLater(); // it may be in the middle of its own menu
    }
    for (std::size_t place = 0; place < chips.size(); ++place) {
        auto* chip = chips[place];
        m_row->insertWidget(static_cast<int>(place), chip);
        if (std::ranges::find(m_chips, chip) != m_chips.end()) continue;
        chip->installEventFilter(this);
        chip->show();
        if (auto* button = qobject_cast<QAbstractButton*>(chip))
            connect(button, &QAbstractButton::toggled, this, [this, chip](bool isChecked) {
                if (isChecked) bringIntoView(*chip);
            });
    }
    for (std::size_t place = 1; place < chips.size(); ++place)
        setTabOrder(chips[place - 1], chips[place]);
    if (!chips.empty()) setTabOrder(chips.back(), m_endButton);
    m_chips = chips;
    updateGeometry();
    placeEndButton();
}

QSize ChipRow::sizeHint() const {
    return {widget()->sizeHint().width(), minimumSizeHint().height()};
}

QSize ChipRow::minimumSizeHint() const {
    return {0, std::max(widget()->sizeHint().height(), m_endButton->sizeHint().height())};
}

bool ChipRow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) bringIntoView(static_cast<QWidget&>(*watched));
    return QScrollArea::eventFilter(watched, event);
}

void ChipRow::bringIntoView(const QWidget& chip) {
    widget()->layout()->activate();
    const QRect place(chip.mapTo(widget(), QPoint()), chip.size());
    ensureVisible(place.center().x(), 0, place.width() / 2 + trailingInset, 0);
}

void ChipRow::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    placeEndButton();
}

void ChipRow::changeEvent(QEvent* event) {
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) placeEndButton();
}

void ChipRow::placeEndButton() {
    const QSize size = m_endButton->sizeHint();
    const QRect place(QPoint(width() - size.width() - leadingInset, (height() - size.height()) / 2), size);
    m_endButton->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    m_endButton->raise();
}

// A plain wheel goes sideways as well; at the end what is around this scrolls.
void ChipRow::wheelEvent(QWheelEvent* event) {
    QScrollBar& bar = *horizontalScrollBar();
    const int before = bar.value();
    const QPoint turned = event->angleDelta();
    bar.setValue(before - (turned.x() ? turned.x() : turned.y()));
    event->setAccepted(bar.value() != before);
}

} // namespace quillet
