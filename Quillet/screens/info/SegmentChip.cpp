#include "Quillet/screens/info/SegmentChip.h"

#include "Quillet/screens/info/ChipFace.h"
#include "platform/screens/controls/PlainToolTip.h"
#include "platform/screens/controls/ReturnKey.h"
#include "platform/screens/controls/TouchPress.h"

#include <QtGui/QPainter>

namespace quillet {

namespace {

using platform::Asset;

constexpr int leastWidth = 44; // points

} // namespace

SegmentChip::SegmentChip(QWidget* parent)
    : QAbstractButton(parent) {
    setCheckable(true);
    setAutoExclusive(true); // a radio button to assistive tools, and one stop for Tab in a row
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    platform::TouchPress::attach(*this);
    // Assistive tools toggle a radio button instead of pressing it.
    connect(this, &QAbstractButton::toggled, this, [this](bool isChecked) {
        if (isChecked && !m_isBeingSet) Q_EMIT clicked(true);
    });
}

void SegmentChip::setTitle(const QString& title) {
    m_title = title;
    setAccessibleName(title.trimmed().isEmpty() ? QStringLiteral("Untitled") : title);
    platform::setPlainToolTip(*this, isChipTitleCut(title) ? title : QString());
    updateGeometry();
    update();
}

// The toolkit would refuse to leave a row without an active one.
void SegmentChip::setActive(bool isActive) {
    m_isBeingSet = true;
    setAutoExclusive(false);
    setChecked(isActive);
    setAutoExclusive(true);
    m_isBeingSet = false;
}

QSize SegmentChip::sizeHint() const {
    return chipSize(m_title, leastWidth);
}

void SegmentChip::keyPressEvent(QKeyEvent* event) {
    if (platform::isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void SegmentChip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (isDown()) painter.setOpacity(0.75);
    drawChip(painter, *this, m_title,
             {.fill = isChecked() ? Asset::ActiveOrange : Asset::KindaDarkThing, .text = Qt::white});
}

} // namespace quillet
