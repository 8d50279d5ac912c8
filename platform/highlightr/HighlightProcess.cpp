#include "platform/highlightr/HighlightProcess.h"

#include "platform/foundation/NeverDestroyed.h"
#include "platform/highlightr/Frames.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

#include <cstring>

namespace platform {

using highlight::ChildProcess;
using highlight::Priority;
using highlight::PriorityMutex;
using highlight::Question;

namespace {

constexpr qsizetype knownBytes = 24 << 20; // two texts of a megabyte with their runs

class Turn {
public:
    Turn(PriorityMutex& mutex, Priority priority)
        : m_mutex(mutex) {
        m_mutex.lock(priority);
    }

    ~Turn() { m_mutex.unlock(); }

    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    PriorityMutex& m_mutex;
};

QString installedHelper() {
    const QDir here(QCoreApplication::applicationDirPath());
    const QString name = QStringLiteral("quillet-highlighter");
    if (here.exists(name)) return here.filePath(name);
    return here.filePath(QStringLiteral("../libexec/quillet/") + name);
}

void appendUtf16(QByteArray& bytes, const QString& text) {
    bytes.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
}

QByteArray requestOf(const Question& question) {
    const auto& language = question.language;
    const highlight::RequestHeader header{
        language ? static_cast<std::uint32_t>(language->size()) : highlight::noLanguage, question.sampleSize};
    QByteArray bytes(reinterpret_cast<const char*>(&header), sizeof header);
    if (language) appendUtf16(bytes, *language);
    appendUtf16(bytes, question.code);
    return bytes;
}

QString textOf(const QByteArray& utf16) {
    QString text(utf16.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), utf16.constData(), static_cast<std::size_t>(text.size()) * 2);
    return text;
}

} // namespace

HighlightProcess& HighlightProcess::shared() {
    static NeverDestroyed<HighlightProcess> process(installedHelper());
    return process.get();
}

HighlightProcess::HighlightProcess(QString executable, HighlightDeadlines deadlines)
    : m_executable(std::move(executable))
    , m_deadlines(deadlines)
    , m_known(knownBytes) {}

std::shared_ptr<const HighlightedCode> HighlightProcess::highlight(const QString& code,
                                                                   const std::optional<QString>& language,
                                                                   quint32 sampleSize,
                                                                   const IsWanted& isWanted) {
    if (code.size() > static_cast<qsizetype>(highlight::longestCode) || (language && language->size() > 128))
        return nullptr;
    const Question question{code, language, language ? 0 : sampleSize};
    if (auto known = m_known.find(question)) return known;
    const Turn turn(m_mutex, language ? Priority::Urgent : Priority::Patient);
    if (isWanted && !isWanted()) return nullptr;
    // The one who had the turn before may have asked the same.
    if (auto known = m_known.find(question)) return known;
    return answer(question);
}

std::shared_ptr<const HighlightedCode> HighlightProcess::answer(const Question& question) {
    const auto frame = ask(question);
    auto parsed = frame ? HighlightedCode::parse(textOf(*frame), question.code.size()) : std::nullopt;
    if (!parsed) {
        m_child.reset();
        return nullptr;
    }
    auto answer = std::make_shared<const HighlightedCode>(std::move(*parsed));
    m_known.add(question, answer);
    return answer;
}

pid_t HighlightProcess::pid() const {
    const Turn turn(m_mutex, Priority::Urgent);
    return m_child ? m_child->pid() : 0;
}

std::expected<QByteArray, ChildProcess::Fault> HighlightProcess::ask(const Question& question) {
    const QByteArray request = requestOf(question);
    const auto time = m_deadlines.request + m_deadlines.perMillion * question.code.size() / 1'000'000;
    // A helper that died since the last request shows only now; one new start makes up for it.
    for (int attempt = 0;; ++attempt) {
        const bool wasRunning = m_child != nullptr;
        if (!ensureRunning()) return std::unexpected(ChildProcess::Fault::CannotStart);
        const QDeadlineTimer deadline(time);
        const auto written = m_child->writeFrame(request, deadline);
        auto answer = written
                          ? m_child->readFrame(highlight::longestAnswer, deadline)
                          : std::expected<QByteArray, ChildProcess::Fault>(std::unexpected(written.error()));
        if (answer) return answer;
        m_child.reset();
        if (answer.error() != ChildProcess::Fault::Broken || !wasRunning || attempt > 0) return answer;
    }
}

bool HighlightProcess::ensureRunning() {
    if (m_child) return true;
    auto started = ChildProcess::start(m_executable);
    if (!started) return false;
    const auto hello = (*started)->readFrame(0, QDeadlineTimer(m_deadlines.start));
    if (!hello) return false;
    m_child = std::move(*started);
    return true;
}

} // namespace platform
