#include "platform/screens/controllers/Sheet.h"

#include "platform/screens/appearance/Palette.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFrame>
#include <QtWidgets/QGraphicsDropShadowEffect>
#include <QtWidgets/QVBoxLayout>

namespace platform {

namespace {

constexpr int cardRadius = 14;
constexpr int windowMargin = 16;

} // namespace

Sheet* Sheet::present(QWidget* content, QWidget* over, QSize preferred) {
    auto sheet = std::unique_ptr<Sheet>(new Sheet(content, over->window(), preferred));
    sheet->show();
    sheet->raise();
    content->setFocus();
    return sheet.release(); // its parent owns it
}

Sheet::Sheet(QWidget* content, QWidget* window, QSize preferred)
    : QWidget(window)
    , m_card(new QFrame(this))
    , m_preferred(preferred)
    , m_returnFocus(QApplication::focusWidget()) {
    m_card->setObjectName(QStringLiteral("sheetCard"));
    m_card->setStyleSheet(QStringLiteral("#sheetCard { background: %1; border-radius: %2px; }")
                              .arg(color(Asset::BackgroundGrey).name())
                              .arg(cardRadius));
    auto* shadow = new QGraphicsDropShadowEffect(m_card);
    shadow->setBlurRadius(40);
    shadow->setOffset(0, 10);
    shadow->setColor(QColor(0, 0, 0, 90));
    m_card->setGraphicsEffect(shadow);
    auto* layout = new QVBoxLayout(m_card);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(content);
    setFocusPolicy(Qt::StrongFocus);
    window->installEventFilter(this);
    placeCard();
}

void Sheet::dismiss() {
    hide();
    if (m_returnFocus) m_returnFocus->setFocus();
    deleteLater();
}

void Sheet::placeCard() {
    const QRect area = parentWidget()->rect();
    setGeometry(area);
    const QSize size = m_preferred.boundedTo(area.size() - QSize(2 * windowMargin, 2 * windowMargin));
    m_card->setGeometry(
        QRect(QPoint((area.width() - size.width()) / 2, (area.height() - size.height()) / 2), size));
}

bool Sheet::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) placeCard();
    return QWidget::eventFilter(watched, event);
}

void Sheet::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), QColor(0, 0, 0, 90));
}

void Sheet::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) dismiss();
}

void Sheet::mousePressEvent(QMouseEvent* event) {
    if (!m_card->geometry().contains(event->pos())) dismiss();
}

// Tab stays inside the card: what lies behind is out of reach while the sheet is up.
bool Sheet::focusNextPrevChild(bool next) {
    QWidget* from = QApplication::focusWidget();
    for (QWidget* to = next ? from->nextInFocusChain() : from->previousInFocusChain(); to && to != from;
         to = next ? to->nextInFocusChain() : to->previousInFocusChain()) {
        if (!m_card->isAncestorOf(to) || !to->isVisible() || !to->isEnabled() ||
            !(to->focusPolicy() & Qt::TabFocus))
            continue;
        to->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
        return true;
    }
    return true;
}

} // namespace platform
