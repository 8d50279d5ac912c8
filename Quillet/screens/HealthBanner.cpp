#include "Quillet/screens/HealthBanner.h"

namespace quillet {

HealthBanner::HealthBanner(QWidget* parent)
    : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setMargin(10);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setStyleSheet(QStringLiteral("background: #B3261E; color: white;"));
    m_subscription = CoreDataStack::shared().health().observe([this](const auto& health) { show(health); });
}

void HealthBanner::show(const CoreDataStack::Health& health) {
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
