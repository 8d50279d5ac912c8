#include "platform/highlightr/HighlightProcess.h"

#include "platform/foundation/NeverDestroyed.h"
#include "platform/highlightr/Frames.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

#include <cstring>

namespace platform {

using highlight::ChildProcess;

namespace {

QString installedHelper() {
    const QDir here(QCoreApplication::applicationDirPath());
    const QString name = QStringLiteral("quillet-highlighter");
    if (here.exists(name)) return here.filePath(name);
    return here.filePath(QStringLiteral("../libexec/quillet/") + name);
}

void appendUtf16(QByteArray& bytes, const QString& text) {
    bytes.append(reinterpret_cast<const char*>(text.utf16()), text.size() * 2);
}

QByteArray requestOf(const QString& code, const std::optional<QString>& language, quint32 sampleSize) {
    const highlight::RequestHeader header{
        language ? static_cast<std::uint32_t>(language->size()) : highlight::noLanguage, sampleSize};
    QByteArray bytes(reinterpret_cast<const char*>(&header), sizeof header);
    if (language) appendUtf16(bytes, *language);
    appendUtf16(bytes, code);
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
    , m_deadlines(deadlines) {}

std::optional<HighlightedCode>
HighlightProcess::highlight(const QString& code, const std::optional<QString>& language, quint32 sampleSize) {
    if (code.size() > static_cast<qsizetype>(highlight::longestCode) || (language && language->size() > 128))
        return std::nullopt;
    const std::scoped_lock lock(m_mutex);
    const auto answer = ask(requestOf(code, language, sampleSize));
    auto highlighted = answer ? HighlightedCode::parse(textOf(*answer), code.size()) : std::nullopt;
    if (!highlighted) m_child.reset();
    return highlighted;
}

pid_t HighlightProcess::pid() const {
    const std::scoped_lock lock(m_mutex);
    return m_child ? m_child->pid() : 0;
}

std::expected<QByteArray, ChildProcess::Fault> HighlightProcess::ask(const QByteArray& request) {
    // A helper that died since the last request shows only now; one new start makes up for it.
    for (int attempt = 0;; ++attempt) {
        const bool wasRunning = m_child != nullptr;
        if (!ensureRunning()) return std::unexpected(ChildProcess::Fault::CannotStart);
        const QDeadlineTimer deadline(m_deadlines.request);
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
