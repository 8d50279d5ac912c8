#include "app/SingleInstance.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtNetwork/QLocalSocket>

namespace quillet {

namespace {

constexpr int connectTimeoutMilliseconds = 2000;

// A socket's path has room for some hundred bytes only, so the directory goes in as a digest.
QString serverName(const QString& directory) {
    const auto digest =
        QCryptographicHash::hash(directory.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return QStringLiteral("quillet-") + QString::fromLatin1(digest);
}

} // namespace

SingleInstance::SingleInstance(const QString& directory) {
    const QString name = serverName(directory);
    QDir().mkpath(directory);
    m_lock = std::make_unique<QLockFile>(QDir(directory).filePath(QStringLiteral("Quillet.lock")));
    m_lock->setStaleLockTime(0); // a lock ends with its process, however long that runs
    if (m_lock->tryLock() || m_lock->error() != QLockFile::LockFailedError) {
        listen(name);
        return;
    }
    QLocalSocket socket;
    socket.connectToServer(name);
    m_isAnotherRunning = socket.waitForConnected(connectTimeoutMilliseconds);
    if (m_isAnotherRunning)
        socket.disconnectFromServer();
    else
        listen(name); // a lock that nobody stands behind: left by a crash under another host name
}

void SingleInstance::listen(const QString& name) {
    QLocalServer::removeServer(name); // left by a program that was killed: the lock is ours
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    m_server.listen(name);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] {
        while (auto* connection = m_server.nextPendingConnection())
            connection->deleteLater();
        if (m_onActivate) m_onActivate();
    });
}

} // namespace quillet
