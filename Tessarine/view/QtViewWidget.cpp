#include "Tessarine/view/QtViewWidget.h"

#include "Tessarine/view/QtConversions.h"
#include "Tessarine/view/QtViewHost.h"
#include "Tessarine/view/ViewPainter.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <utility>

namespace tessarine {

QtViewWidget::QtViewWidget(QWidget* parent)
    : QWidget(parent)
    , m_host(std::make_shared<QtViewHost>(*this)) {}

QtViewWidget::~QtViewWidget() {
    setRootView(nullptr);
}

void QtViewWidget::setRootView(std::shared_ptr<View> root) {
    if (m_root) m_root->setHost({});
    m_root = std::move(root);
    m_pictures.clear();
    if (m_root) m_root->setHost(m_host);
    fitRootView();
    update();
}

void QtViewWidget::setUserInterfaceStyle(UserInterfaceStyle style) {
    if (std::exchange(m_style, style) == style) return;
    m_pictures.clear();
    update();
}

// Views find their places before anything is painted, and what they move meanwhile is part of it.
void QtViewWidget::paintEvent(QPaintEvent* event) {
    if (!m_root) return;
    m_host->setPaintedRegion(event->region());
    layoutViews(*m_root);
    QPainter painter(this);
    updateOpacity(painter, event->region());
    ViewPainter(painter, event->region(), m_pictures, m_style).paint(*m_root);
    m_host->setPaintedRegion({});
}

// What the views cover the toolkit need not fill before.
void QtViewWidget::updateOpacity(QPainter& painter, const QRegion& region) {
    const auto& background = m_root->backgroundColor();
    const bool isOpaque =
        background && m_root->cornerRadius() <= 0 && toQt(background->resolved(m_style)).alpha() == 255;
    if (isOpaque == testAttribute(Qt::WA_OpaquePaintEvent)) return;
    setAttribute(Qt::WA_OpaquePaintEvent, isOpaque);
    if (isOpaque) return;
    // This time it has not been filled.
    for (const QRect& rect : region)
        painter.fillRect(rect, palette().window());
    update();
}

void QtViewWidget::resizeEvent(QResizeEvent* /*event*/) {
    fitRootView();
}

void QtViewWidget::layoutViews(View& root) {
    root.layoutIfNeeded();
}

void QtViewWidget::fitRootView() {
    if (m_root)
        m_root->setFrame({.width = static_cast<double>(width()), .height = static_cast<double>(height())});
}

} // namespace tessarine
