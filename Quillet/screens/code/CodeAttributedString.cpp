#include "Quillet/screens/code/CodeAttributedString.h"

#include "platform/foundation/MainQueue.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>
#include <QtCore/QThreadPool>

#include <algorithm>

namespace quillet {

namespace {

using namespace std::chrono_literals;
using platform::LineColours;
using platform::TextView;

// The pause behind a key grows with what a highlight costs, so that typing does not keep the machine busy.
constexpr std::chrono::milliseconds shortestDelay = 40ms;
constexpr std::chrono::milliseconds longestDelay = 1s;

// Code units. What is in view at first lies well inside of it.
constexpr qsizetype startSize = 12 * 1024;

// Whatever else waits for the pool's threads, such as detections that wait for the helper.
void runAtOnce(std::function<void()> work) {
    QThreadPool* pool = QThreadPool::globalInstance();
    pool->reserveThread();
    pool->startOnReservedThread(std::move(work));
}

} // namespace

struct CodeAttributedString::Job {
    QPointer<CodeAttributedString> self; // looked at on the main thread only
    std::shared_ptr<platform::Highlightr> highlightr;
    std::shared_ptr<std::atomic<Number>> latest;
    Number number = 0;
    QString rawText;
    std::optional<QString> language;
    bool showsStart = false;

    bool isWanted() const { return *latest == number; }
};

CodeAttributedString::CodeAttributedString(TextView& view)
    : m_view(&view)
    , m_highlightr(std::make_shared<platform::Highlightr>())
    , m_latest(std::make_shared<std::atomic<Number>>(0)) {
    m_delay.setSingleShot(true);
    connect(&m_delay, &QTimer::timeout, this, &CodeAttributedString::start);
    connect(m_view, &QPlainTextEdit::textChanged, this, &CodeAttributedString::textChanged);
}

CodeAttributedString::~CodeAttributedString() {
    ++*m_latest; // nobody wants what still waits
}

void CodeAttributedString::setLanguage(const std::optional<QString>& language) {
    m_language = language;
    startIn(0ms);
}

void CodeAttributedString::setCodeFont(const QFont& font) {
    m_view->setCodeFont(font);
}

void CodeAttributedString::setAttributedString(const platform::AttributedString& string) {
    if (m_view->text() != string.string) m_view->setText(string.string);
    if (!m_hasOwnColours) m_view->setRuns(platform::splitRuns(string.string, string.runs));
}

void CodeAttributedString::themeChanged() {
    const auto theme = m_highlightr->theme();
    QPalette palette = m_view->palette();
    QColor text = QColor::fromRgba(theme->foregroundColor());
    palette.setColor(QPalette::Base, QColor::fromRgba(theme->themeBackgroundColor()));
    palette.setColor(QPalette::Text, text);
    text.setAlphaF(0.75F);
    palette.setColor(QPalette::PlaceholderText, text);
    m_view->setPalette(palette);
    startIn(0ms);
}

void CodeAttributedString::textChanged() {
    const auto pause = std::clamp(m_lastDuration, shortestDelay, longestDelay);
    startIn(m_view->hasColours() ? pause : 0ms);
}

void CodeAttributedString::startIn(std::chrono::milliseconds delay) {
    ++*m_latest;
    m_hasOwnColours = false;
    m_delay.start(delay);
}

void CodeAttributedString::start() {
    m_isDue = m_isRunning;
    if (m_isRunning) return; // its end starts this one
    m_isRunning = true;
    Q_EMIT highlightingChanged();
    runAtOnce([job = Job{this, m_highlightr, m_latest, *m_latest, m_view->document()->toRawText(), m_language,
                         !m_view->hasColours()}] { run(job); });
}

void CodeAttributedString::run(const Job& job) {
    const QString text = TextView::displayText(job.rawText);
    if (job.showsStart && job.language && text.size() > 2 * startSize) showStart(job, text);
    platform::dispatchToMain([self = job.self, number = job.number, answer = highlight(job, text)] {
        if (self) self->finish(number, answer);
    });
}

// A highlighter reads from the start, so what it says of a leading piece holds for the whole but at its end.
void CodeAttributedString::showStart(const Job& job, const QString& text) {
    const qsizetype end = text.lastIndexOf(u'\n', startSize);
    if (end < 0) return;
    const auto start =
        job.highlightr->highlight(text.first(end), job.language, platform::Highlightr::Rendering::Fast);
    platform::dispatchToMain([self = job.self, number = job.number, colours = LineColours(text, start.runs)] {
        if (self) self->show(number, colours);
    });
}

std::shared_ptr<CodeAttributedString::Answer> CodeAttributedString::highlight(const Job& job,
                                                                              const QString& text) {
    QElapsedTimer time;
    time.start();
    const auto result = job.highlightr->highlightIfWanted(
        text, job.language, platform::Highlightr::Rendering::Fast, [&job] { return job.isWanted(); });
    if (!job.isWanted()) return nullptr;
    return std::make_shared<Answer>(
        LineColours(text, result ? result->runs : std::vector<platform::AttributeRun>()),
        std::chrono::milliseconds(time.elapsed()));
}

void CodeAttributedString::show(Number number, const LineColours& colours) {
    if (number == *m_latest) m_view->setColours(colours);
}

void CodeAttributedString::finish(Number number, const std::shared_ptr<Answer>& answer) {
    m_isRunning = false;
    if (answer && number == *m_latest) {
        m_lastDuration = answer->duration;
        m_view->setColours(std::move(answer->colours));
        m_hasOwnColours = m_language.has_value();
    }
    if (m_isDue)
        start();
    else
        Q_EMIT highlightingChanged();
}

} // namespace quillet
