#include "Quillet/screens/info/ChipRow.h"

#include "Quillet/screens/info/ChipFace.h"
#include "Quillet/screens/info/RowEnd.h"
#include "platform/screens/appearance/FocusRing.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QScroller>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

namespace quillet {

namespace {

// Points.
constexpr int trailingInset = 60; // so that the button covers no chip
constexpr int edge = 16;          // of the panel
constexpr int spacing = 4;

bool isFocusable(const QWidget* chip) {
    return chip->focusPolicy() != Qt::NoFocus;
}

} // namespace

ChipRow::ChipRow(const QString& name, QWidget* endButton, QWidget* parent)
    : QWidget(parent)
    , m_area(new QScrollArea(this))
    , m_end(new RowEnd(this))
    , m_endButton(endButton) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    makeArea();
    m_area->setAccessibleName(name);
    auto* edges = new QVBoxLayout(this);
    edges->setContentsMargins(0, 0, 0, 0);
    edges->addWidget(m_area);
    m_endButton->setParent(this);
    setTabOrder(m_area, m_endButton);
}

void ChipRow::makeArea() {
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setWidgetResizable(true);
    m_area->installEventFilter(this);
    m_area->viewport()->installEventFilter(this);
    m_area->viewport()->setAutoFillBackground(false);
    QScroller::grabGesture(m_area->viewport(), QScroller::TouchGesture);
    connect(m_area->horizontalScrollBar(), &QScrollBar::rangeChanged, this, &ChipRow::rangeChanged);
    connect(m_area->horizontalScrollBar(), &QScrollBar::valueChanged, this, &ChipRow::rangeChanged);
    auto content = std::make_unique<QWidget>();
    m_row = new QHBoxLayout(content.get());
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(spacing);
    m_row->addSpacing(edge - chipMargin); // margins would not change sides in a row from right to left
    m_row->addSpacing(trailingInset);
    m_row->addStretch();
    m_area->setWidget(content.release()); // which owns it now
    m_area->widget()->setAutoFillBackground(false);
}

void ChipRow::setChips(const std::vector<QWidget*>& chips) {
    if (chips == m_chips) return;
    moveFocus(chips);
    for (auto* chip : m_chips) {
        m_row->removeWidget(chip);
        if (std::ranges::find(chips, chip) != chips.end()) continue;
        chip->hide();
        chip->deleteLater(); // it may be in the middle of its own menu
    }
    for (std::size_t place = 0; place < chips.size(); ++place) {
        m_row->insertWidget(static_cast<int>(place) + 1, chips[place]); // behind the edge
        if (std::ranges::find(m_chips, chips[place]) == m_chips.end()) adopt(*chips[place]);
        setTabOrder(place == 0 ? m_area : chips[place - 1], chips[place]);
    }
    setTabOrder(chips.empty() ? m_area : chips.back(), m_endButton);
    m_chips = chips;
    rangeChanged();
    updateGeometry();
    placeEnd();
}

void ChipRow::adopt(QWidget& chip) {
    chip.installEventFilter(this);
    chip.show();
    if (auto* button = qobject_cast<QAbstractButton*>(&chip))
        connect(button, &QAbstractButton::toggled, this, [this, button](bool isChecked) {
            if (isChecked) bringIntoView(*button);
        });
}

// From a chip that is about to go to the one that comes to lie in its place.
void ChipRow::moveFocus(const std::vector<QWidget*>& chips) {
    const auto focused = std::ranges::find_if(m_chips, &QWidget::hasFocus);
    if (focused == m_chips.end() || std::ranges::find(chips, *focused) != chips.end()) return;
    const auto place = std::min<std::size_t>(focused - m_chips.begin(), chips.size() - 1);
    (chips.empty() ? m_endButton : chips[place])->setFocus(Qt::OtherFocusReason);
}

void ChipRow::scrollToStart() {
    m_area->horizontalScrollBar()->setValue(0);
}

void ChipRow::bringIntoView(const QWidget& chip) {
    // Where it came just now the row has its size only after these.
    for (auto* each : {m_area->widget(), m_area->viewport()})
        QCoreApplication::sendPostedEvents(each, QEvent::LayoutRequest);
    const QPoint middle = chip.mapTo(m_area->widget(), chip.rect().center());
    m_area->ensureVisible(middle.x(), 0, chip.width() / 2 + trailingInset + RowEnd::fadeWidth, 0);
}

QSize ChipRow::sizeHint() const {
    return {m_area->widget()->sizeHint().width(), minimumSizeHint().height()};
}

QSize ChipRow::minimumSizeHint() const {
    return {0, std::max(m_area->widget()->sizeHint().height(), m_endButton->sizeHint().height())};
}

bool ChipRow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Wheel:
        if (watched != m_area->viewport()) break;
        wheelEvent(static_cast<QWheelEvent*>(event));
        return true;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        if (watched == m_area)
            update();
        else if (event->type() == QEvent::FocusIn)
            bringIntoView(static_cast<QWidget&>(*watched));
        break;
    case QEvent::KeyPress:
        if (watched == m_area) break; // scrolls by itself
        return keyPressed(static_cast<QWidget&>(*watched), static_cast<QKeyEvent&>(*event));
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// The toolkit would press the chip that an arrow leads to.
bool ChipRow::keyPressed(QWidget& chip, const QKeyEvent& event) {
    const auto last = static_cast<std::ptrdiff_t>(m_chips.size()) - 1;
    const auto here = std::ranges::find(m_chips, &chip) - m_chips.begin();
    const bool isLeftToRight = layoutDirection() == Qt::LeftToRight;
    std::ptrdiff_t target = here;
    switch (event.key()) {
    case Qt::Key_Left:
        target = isLeftToRight ? here - 1 : here + 1;
        break;
    case Qt::Key_Right:
        target = isLeftToRight ? here + 1 : here - 1;
        break;
    case Qt::Key_Home:
        target = 0;
        break;
    case Qt::Key_End:
        target = last;
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        break;
    default:
        return false;
    }
    m_chips[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(target, 0, last))]->setFocus(
        Qt::TabFocusReason);
    return true;
}

void ChipRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeEnd();
}

void ChipRow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange) placeEnd();
}

void ChipRow::placeEnd() {
    const QSize size = m_endButton->sizeHint();
    const QRect button(QPoint(width() - size.width() - edge + chipMargin, (height() - size.height()) / 2),
                       size);
    const int start = button.left() - RowEnd::fadeWidth;
    m_end->setGeometry(
        QStyle::visualRect(layoutDirection(), rect(), QRect(start, 0, width() - start, height())));
    m_endButton->setGeometry(QStyle::visualRect(layoutDirection(), rect(), button));
    m_end->raise();
    m_endButton->raise();
}

// A row whose chips take no focus is scrolled by the keyboard, where there is something to scroll.
void ChipRow::rangeChanged() {
    const auto& bar = *m_area->horizontalScrollBar();
    const bool scrollsByKey = bar.maximum() > 0 && std::ranges::none_of(m_chips, isFocusable);
    m_area->setFocusPolicy(scrollsByKey ? Qt::TabFocus : Qt::NoFocus);
    m_end->setFollowing(bar.value() < bar.maximum() ? RowEnd::Follow::More : RowEnd::Follow::None);
}

// A plain wheel goes sideways as well; at the end what is around this scrolls.
void ChipRow::wheelEvent(QWheelEvent* event) {
    QScrollBar& bar = *m_area->horizontalScrollBar();
    const int before = bar.value();
    const QPoint turned = event->pixelDelta().isNull() ? event->angleDelta() : event->pixelDelta();
    const bool isSideways = std::abs(turned.x()) > std::abs(turned.y());
    const int sideways = layoutDirection() == Qt::LeftToRight ? -turned.x() : turned.x();
    bar.setValue(before + (isSideways ? sideways : -turned.y()));
    event->setAccepted(bar.value() != before);
}

void ChipRow::paintEvent(QPaintEvent* /*event*/) {
    if (!platform::showsFocusRing(*m_area)) return;
    constexpr int inset = 4; // points
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    platform::drawFocusRing(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset), inset);
}

} // namespace quillet
