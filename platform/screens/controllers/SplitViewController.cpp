#include "platform/screens/controllers/SplitViewController.h"

#include "platform/screens/controllers/FocusScope.h"
#include "platform/screens/controllers/NavigationController.h"
#include "platform/screens/controllers/ScreenChange.h"
#include "platform/screens/controllers/SizeClass.h"
#include "platform/screens/controllers/SplitDivider.h"

#include <QtCore/QEvent>
#include <QtGui/QShortcut>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

// Points.
constexpr int usualPrimaryWidth = 330;
constexpr int leastPrimaryWidth = 260;
constexpr int mostPrimaryWidth = 520;
constexpr int leastSecondaryWidth = 380;
constexpr int dividerGrip = 9;

QString titleOf(const ViewController& column) {
    const auto* navigation = qobject_cast<const NavigationController*>(&column);
    return navigation && navigation->topViewController() ? navigation->topViewController()->title()
                                                         : column.title();
}

} // namespace

SplitViewController::SplitViewController(std::unique_ptr<ViewController> primary,
                                         std::unique_ptr<ViewController> secondary, QWidget* parent)
    : ViewController(parent)
    , m_primary(primary.release())
    , m_secondary(secondary.release())
    , m_columns(new QWidget(this))
    , m_divider(new SplitDivider(m_columns))
    , m_primaryWidth(usualPrimaryWidth) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_columns, 1);
    for (auto* child : {m_primary, m_secondary})
        child->setParent(m_columns);
    m_divider->raise();
    m_columns->installEventFilter(this);
    connect(m_divider, &SplitDivider::draggedTo, this, [this](int x) {
        setPrimaryWidth(layoutDirection() == Qt::RightToLeft ? m_columns->width() - 1 - x : x);
    });
    for (const auto* keys : {"F6", "Shift+F6"})
        connect(new QShortcut(QKeySequence(QString::fromLatin1(keys)), this), &QShortcut::activated, this,
                &SplitViewController::focusOtherColumn);
    showColumns();
}

ViewController* SplitViewController::viewController(Column column) const {
    return column == Column::Primary ? m_primary : m_secondary;
}

std::vector<ViewController*> SplitViewController::children() const {
    return {m_primary, m_secondary};
}

void SplitViewController::showColumn(Column column, Animated animated) {
    if (column == m_topColumn) return;
    auto& from = *viewController(m_topColumn);
    auto& to = *viewController(column);
    m_topColumn = column;
    Q_EMIT topColumnChanged(column);
    if (!m_isCollapsed) return;
    run({.view = *m_columns,
         .from = from,
         .to = to,
         .way = column == Column::Secondary ? PictureSlide::Way::Forth : PictureSlide::Way::Back,
         .animated = animated,
         .settle = [this] { layOut(); }});
}

void SplitViewController::showColumns() {
    m_primary->setVisible(!m_isCollapsed || m_topColumn == Column::Primary);
    m_secondary->setVisible(!m_isCollapsed || m_topColumn == Column::Secondary);
    m_divider->setVisible(!m_isCollapsed);
    layOut();
}

void SplitViewController::collapseIfNeeded() {
    const bool isCollapsed = horizontalSizeClass(m_columns->width()) == SizeClass::Compact;
    if (isCollapsed == std::exchange(m_isCollapsed, isCollapsed)) return;
    if (isCollapsed) {
        const Column top = collapsesSecondaryOntoPrimary() ? Column::Primary : Column::Secondary;
        if (std::exchange(m_topColumn, top) != top) Q_EMIT topColumnChanged(top);
    }
    showWayBack();
    showColumns();
    Q_EMIT collapsedChanged(isCollapsed);
}

void SplitViewController::showWayBack() {
    auto* navigation = qobject_cast<NavigationController*>(m_secondary);
    if (!navigation) return;
    if (!m_isCollapsed) return navigation->setWayBackFromRoot(std::nullopt);
    navigation->setWayBackFromRoot(
        NavigationController::WayBack{titleOf(*m_primary), [this] { showColumn(Column::Primary); }});
}

void SplitViewController::setPrimaryWidth(int width) {
    m_primaryWidth = width;
    layOut();
}

void SplitViewController::layOut() {
    const QRect all = m_columns->rect();
    if (m_isCollapsed) {
        m_primary->setGeometry(all);
        m_secondary->setGeometry(all);
        return;
    }
    const int most = std::clamp(all.width() - leastSecondaryWidth, leastPrimaryWidth, mostPrimaryWidth);
    const int width = std::clamp(m_primaryWidth, leastPrimaryWidth, most);
    const auto place = [&](QWidget& widget, int from, int to) {
        widget.setGeometry(
            QStyle::visualRect(layoutDirection(), all, QRect(from, 0, to - from, all.height())));
    };
    place(*m_primary, 0, width);
    place(*m_secondary, width + 1, all.width()); // beside the line
    place(*m_divider, width - dividerGrip / 2, width + dividerGrip / 2 + 1);
}

bool SplitViewController::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_columns && event->type() == QEvent::Resize) {
        collapseIfNeeded();
        layOut();
    }
    if (watched == m_columns && event->type() == QEvent::LayoutDirectionChange) layOut();
    return ViewController::eventFilter(watched, event);
}

void SplitViewController::focusOtherColumn() {
    if (m_isCollapsed) return;
    focusInto(m_primary->isAncestorOf(QApplication::focusWidget()) ? *m_secondary : *m_primary);
}

} // namespace platform
