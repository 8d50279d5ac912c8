#include "Tessarine/view/interaction/CaretBlink.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QStyleHints>

#include <utility>

namespace tessarine {

CaretBlink::CaretBlink(std::function<void(bool)> show)
    : m_show(std::move(show)) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { this->show(!m_isShown); });
    QObject::connect(QGuiApplication::styleHints(), &QStyleHints::cursorFlashTimeChanged, &m_timer, [this] {
        if (m_isShown || m_timer.isActive()) start();
    });
}

void CaretBlink::stop() {
    m_timer.stop();
    show(false);
}

void CaretBlink::start() {
    const int period = QGuiApplication::styleHints()->cursorFlashTime();
    m_timer.stop();
    if (period > 1) m_timer.start(period / 2);
    show(true);
}

void CaretBlink::show(bool isShown) {
    m_isShown = isShown;
    m_show(isShown);
}

} // namespace tessarine
