#include "platform/screens/sharing/MailHandlerQuery.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTimer>

#include <utility>

namespace platform {

namespace {

constexpr int patienceMilliseconds = 5000;

} // namespace

MailHandlerQuery& MailHandlerQuery::shared() {
    static QPointer<MailHandlerQuery> query;
    if (!query) query = new MailHandlerQuery(QCoreApplication::instance());
    return *query;
}

MailHandlerQuery::MailHandlerQuery(QObject* parent)
    : QObject(parent) {}

// A process that is killed by its destructor would still tell of its end.
MailHandlerQuery::~MailHandlerQuery() {
    if (m_process) m_process->disconnect(this);
}

void MailHandlerQuery::ask(Answer answer) {
    if (answer) m_waiting.push_back(std::move(answer));
    if (!std::exchange(m_isAsking, true)) start();
}

void MailHandlerQuery::start() {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
    if (program.isEmpty()) {
        const bool isKnown = !QStandardPaths::findExecutable(QStringLiteral("xdg-email")).isEmpty();
        QTimer::singleShot(0, this, [this, isKnown] { finish(isKnown); });
        return;
    }
    m_process = new QProcess(this);
    connect(m_process, &QProcess::finished, this,
            [this] { finish(!m_process->readAllStandardOutput().trimmed().isEmpty()); });
    // Queued: it may be told while the process is being started.
    connect(
        m_process, &QProcess::errorOccurred, this,
        [this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) finish(false);
        },
        Qt::QueuedConnection);
    QTimer::singleShot(patienceMilliseconds, m_process, &QProcess::kill);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->start(program, {QStringLiteral("query"), QStringLiteral("default"),
                               QStringLiteral("x-scheme-handler/mailto")});
}

void MailHandlerQuery::finish(bool isKnown) {
    if (auto* process = std::exchange(m_process, nullptr)) process->deleteLater();
    m_isAsking = false;
    m_lastAnswer = isKnown;
    for (const Answer& answer : std::exchange(m_waiting, {}))
        answer(isKnown);
}

} // namespace platform
