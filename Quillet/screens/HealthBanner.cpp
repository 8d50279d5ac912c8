#include "Quillet/screens/HealthBanner.h"

#include "platform/screens/appearance/Palette.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>

namespace quillet {

using platform::Asset;

HealthBanner::HealthBanner(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(10);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    takeColors();
    m_subscription = CoreDataStack::shared().health().observe([this](const auto& health) { tell(health); });
}

void HealthBanner::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(rect(), platform::color(Asset::SystemRed));
    QLabel::paintEvent(event);
}

// Its text in the colour that is read on red, also when that changes.
void HealthBanner::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange) takeColors();
}

void HealthBanner::takeColors() {
    QPalette colors;
    colors.setColor(QPalette::WindowText, platform::color(Asset::OnAccent));
    setPalette(colors);
}

void HealthBanner::tell(const CoreDataStack::Health& health) {
    QString text;
    if (health.loadError)
        text = QStringLiteral(
                   "The library could not be opened, so nothing can be saved: %1. The file was left as "
                   "it is.")
                   .arg(health.loadError->message);
    else if (health.saveError)
        text = QStringLiteral("Not saved: %1. Your changes stay here, and the next save tries again.")
                   .arg(health.saveError->message);
    setText(text);
    setVisible(!text.isEmpty());
}

} // namespace quillet
