#include "Quillet/screens/code/CodeAttributedString.h"

#include "platform/foundation/MainQueue.h"

#include <QtCore/QPointer>

namespace quillet {

namespace {

using namespace std::chrono_literals;

constexpr auto delay = 40ms;

} // namespace

CodeAttributedString::CodeAttributedString(platform::TextView& view)
    : m_view(&view)
    , m_highlightr(std::make_shared<platform::Highlightr>())
    , m_delay(platform::Timer::Kind::OneShot, delay, [this] { start(); }) {
    connect(m_view, &QPlainTextEdit::textChanged, this, [this] { m_delay.start(); });
}

void CodeAttributedString::setLanguage(const std::optional<QString>& language) {
    m_language = language;
    m_delay.start();
}

void CodeAttributedString::setCodeFont(const QFont& font) {
    m_view->setFont(font);
    m_view->setTabStopDistance(4 * QFontMetricsF(font).horizontalAdvance(u' '));
}

void CodeAttributedString::setAttributedString(const platform::AttributedString& string) {
    if (m_view->text() != string.string) m_view->setText(string.string);
    // With breaks of two units the runs would not fit the text on screen.
    if (m_view->displayText() == string.string) m_view->setRuns(string.runs);
}

void CodeAttributedString::themeChanged() {
    const auto theme = m_highlightr->theme();
    QPalette palette = m_view->palette();
    palette.setColor(QPalette::Base, QColor::fromRgba(theme->themeBackgroundColor()));
    palette.setColor(QPalette::Text, QColor::fromRgba(theme->foregroundColor()));
    m_view->setPalette(palette);
    m_delay.start();
}

void CodeAttributedString::start() {
    if (m_isRunning) return; // the end of the running one starts the next
    m_isRunning = true;
    Q_EMIT highlightingChanged();
    platform::dispatchToBackground([self = QPointer(this), highlightr = m_highlightr,
                                    text = m_view->displayText(), language = m_language] {
        auto result = highlightr->highlight(text, language, platform::Highlightr::Rendering::Fast);
        platform::dispatchToMain([self, language, result = std::move(result)] {
            if (self) self->finish(language.value_or(QString()), result);
        });
    });
}

void CodeAttributedString::finish(const QString& language, const platform::AttributedString& result) {
    m_isRunning = false;
    if (result.string == m_view->displayText() && language == m_language.value_or(QString()))
        m_view->setRuns(result.runs);
    else
        m_delay.start();
    Q_EMIT highlightingChanged();
}

} // namespace quillet
