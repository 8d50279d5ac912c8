#include "Quillet/screens/settings/SettingsRow.h"

#include "platform/screens/appearance/FocusRing.h"
#include "platform/screens/appearance/Symbol.h"
#include "platform/screens/appearance/TypeScale.h"
#include "platform/screens/controls/ReturnKey.h"
#include "platform/screens/style/Metrics.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

#include <algorithm>

namespace quillet {

using platform::Asset;

namespace {

// Points.
constexpr int inset = 16; // of a card's content
constexpr int padding = 8;
constexpr int gap = 8;
constexpr int markSide = 14;
constexpr int groundInset = 4;
constexpr int ringReach = platform::focusRingGap + platform::focusRingWidth;
constexpr double groundRadius = platform::cornerRadius - groundInset / 2.0;

QFont valueFont() {
    QFont font = platform::font(platform::TextStyle::Subheadline);
    font.setWeight(QFont::Medium);
    return font;
}

} // namespace

SettingsRow::SettingsRow(ColorfulIconLabelStyle::Label label, Asset color, Leads leads, QWidget* parent)
    : QAbstractButton(parent)
    , m_label(std::move(label))
    , m_color(color)
    , m_leads(leads) {
    setAccessibleName(m_label.title);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SettingsRow::setValue(const QString& value) {
    m_value = value;
    setAccessibleDescription(value);
    update();
}

QSize SettingsRow::sizeHint() const {
    const QSize label = ColorfulIconLabelStyle(m_color).size(m_label.title);
    return {label.width() + 2 * inset + gap + markSide,
            platform::heightOf(fontMetrics(),
                               std::max(platform::leastTargetHeight, label.height() + 2 * padding))};
}

void SettingsRow::keyPressEvent(QKeyEvent* event) {
    if (platform::isReturn(*event))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

// What is under the pointer or pressed is marked as the rows of a list are.
void SettingsRow::paintGround(QPainter& painter) const {
    const QRectF ground =
        QRectF(rect()).adjusted(groundInset, groundInset / 2.0, -groundInset, -groundInset / 2.0);
    if (isDown() || underMouse()) {
        QColor mark = platform::color(Asset::TextSecondary);
        mark.setAlpha(isDown() ? 56 : 26);
        painter.setPen(Qt::NoPen);
        painter.setBrush(mark);
        painter.drawRoundedRect(ground, groundRadius, groundRadius);
    }
    if (platform::showsFocusRing(*this))
        platform::drawFocusRing(painter, ground.adjusted(ringReach, ringReach, -ringReach, -ringReach),
                                groundRadius - ringReach);
}

// Between rows of one card, from where the titles start.
void SettingsRow::paintSeparator(QPainter& painter) const {
    const int from = inset + ColorfulIconLabelStyle(m_color).size({}).width();
    painter.fillRect(QStyle::visualRect(layoutDirection(), rect(), QRect(from, 0, width() - from, 1)),
                     platform::color(Asset::Separator));
}

// These paint at the end of `row` and give back what is left of it.
QRect SettingsRow::paintMark(QPainter& painter, const QRect& row) const {
    const QRect mark(row.right() + 1 - markSide, row.center().y() - markSide / 2, markSide, markSide);
    const QString inward = layoutDirection() == Qt::LeftToRight ? QStringLiteral("chevron.right")
                                                                : QStringLiteral("chevron.left");
    platform::drawSymbol(painter, QStyle::visualRect(layoutDirection(), rect(), mark),
                         m_leads == Leads::Inward ? inward : QStringLiteral("arrow.up.right.square"),
                         platform::color(Asset::TextSecondary));
    return row.adjusted(0, 0, -(markSide + gap), 0);
}

// At most what the title leaves.
QRect SettingsRow::paintValue(QPainter& painter, const QRect& row) const {
    painter.setFont(valueFont());
    painter.setPen(platform::color(Asset::TextSecondary));
    const int room = row.width() - ColorfulIconLabelStyle(m_color).size(m_label.title).width() - gap;
    const QString shown = painter.fontMetrics().elidedText(m_value, Qt::ElideRight, std::max(room, 0));
    const int width = painter.fontMetrics().horizontalAdvance(shown);
    const QRect place(row.right() + 1 - width, row.top(), width, row.height());
    painter.drawText(QStyle::visualRect(layoutDirection(), rect(), place),
                     Qt::AlignCenter | Qt::TextSingleLine, shown);
    return row.adjusted(0, 0, -(width + gap), 0);
}

void SettingsRow::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(layoutDirection());
    if (y() > 0) paintSeparator(painter); // another row is above it
    paintGround(painter);
    QRect row = paintMark(painter, rect().adjusted(inset, 0, -inset, 0));
    if (!m_value.isEmpty()) row = paintValue(painter, row);
    ColorfulIconLabelStyle(m_color).draw(painter, QStyle::visualRect(layoutDirection(), rect(), row),
                                         m_label);
}

} // namespace quillet
