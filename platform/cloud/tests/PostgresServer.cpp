#include "platform/cloud/tests/PostgresServer.h"

#include "platform/cloud/ServerSchema.h"
#include "platform/foundation/FatalError.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <arpa/inet.h>
#include <csignal>
#include <grp.h>
#include <libpq-fe.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform::testing {

namespace {

void require(bool holds, const QString& what) {
    if (!holds) fatalError(what.toStdString());
}

QString programs() {
    const QString debian = QStringLiteral("/usr/lib/postgresql/15/bin");
    if (QFile::exists(debian + QStringLiteral("/postgres"))) return debian;
    QProcess config;
    config.start(QStringLiteral("pg_config"), {QStringLiteral("--bindir")});
    require(config.waitForFinished(), QStringLiteral("there is no PostgreSQL server"));
    return QString::fromLocal8Bit(config.readAllStandardOutput()).trimmed();
}

// Whom the server runs as: it refuses to be root.
const passwd* unprivileged() {
    if (::getuid() != 0) return nullptr;
    const passwd* user = ::getpwnam("postgres");
    return user != nullptr ? user : ::getpwnam("nobody");
}

int freePort() {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    const bool isBound =
        ::bind(listener, generic, length) == 0 && ::getsockname(listener, generic, &length) == 0;
    ::close(listener);
    require(isBound, QStringLiteral("no free port"));
    return ntohs(address.sin_port);
}

constexpr auto groupsAccess = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup;
constexpr auto othersAccess = QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

QString passwordFile(const QString& directory) {
    return directory + QStringLiteral("/pgpass");
}

} // namespace

PostgresServer::PostgresServer(Schema schema, const QStringList& settings) {
    QTemporaryDir directory;
    directory.setAutoRemove(false);
    m_directory = directory.path();
    // The server may be frozen, dead or half started.
    m_cleaner.start(
        QStringLiteral("sh"),
        {QStringLiteral("-c"),
         QStringLiteral("cat > /dev/null; pid=$(head -n 1 \"$1/data/postmaster.pid\" 2> /dev/null)"
                        " && kill -QUIT $pid && kill -CONT $pid"
                        " && while kill -0 $pid; do sleep 0.02; done 2> /dev/null; rm -rf \"$1\""),
         QStringLiteral("cleaner"), m_directory});
    require(m_cleaner.waitForStarted(), QStringLiteral("no shell"));
    handOver(m_directory);
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    initialise(settings);
    qputenv("PGPASSFILE", QFile::encodeName(passwordFile(m_directory)));
    start();
    QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), m_directory);
    run(QStringLiteral("CREATE ROLE quillet_users NOLOGIN"));
    run(QStringLiteral("CREATE DATABASE cloud"));
    QSqlDatabase::database(m_directory, false).close(); // from now on in the database "cloud"
    if (schema == Schema::Installed) run(serverSchema());
}

PostgresServer::~PostgresServer() {
    QSqlDatabase::removeDatabase(m_directory);
    thaw();
    if (m_server.state() != QProcess::NotRunning) ::kill(static_cast<pid_t>(m_server.processId()), SIGQUIT);
    m_server.waitForFinished();
    m_cleaner.closeWriteChannel();
    m_cleaner.waitForFinished();
}

void PostgresServer::launch(QProcess& process, const QString& program, const QStringList& arguments) const {
    process.setWorkingDirectory(m_directory);
    process.setChildProcessModifier([user = unprivileged()] {
        if (user != nullptr &&
            (::setgroups(0, nullptr) != 0 || ::setgid(user->pw_gid) != 0 || ::setuid(user->pw_uid) != 0))
            ::_exit(1);
        ::prctl(PR_SET_PDEATHSIG, SIGQUIT);
    });
    process.start(programs() + u'/' + program, arguments);
    require(process.waitForStarted(), program + QStringLiteral(" does not start"));
}

void PostgresServer::initialise(const QStringList& settings) {
    QProcess initdb;
    launch(initdb, QStringLiteral("initdb"),
           {QStringLiteral("--pgdata=data"), QStringLiteral("--username=admin"),
            QStringLiteral("--auth-local=trust"), QStringLiteral("--auth-host=scram-sha-256"),
            QStringLiteral("--locale=C"), QStringLiteral("--encoding=UTF8"), QStringLiteral("--no-sync")});
    require(initdb.waitForFinished() && initdb.exitCode() == 0,
            QString::fromLocal8Bit(initdb.readAllStandardError()));
    QFile configuration(m_directory + QStringLiteral("/data/postgresql.conf"));
    require(configuration.open(QIODevice::Append), QStringLiteral("no configuration"));
    const QStringList lines =
        QStringList{QStringLiteral("listen_addresses = '127.0.0.1'"),
                    QStringLiteral("unix_socket_directories = '%1'").arg(m_directory),
                    QStringLiteral("shared_buffers = 16MB"), QStringLiteral("fsync = off")} +
        settings;
    configuration.write(lines.join(u'\n').toUtf8() + '\n');
}

void PostgresServer::start() {
    m_port = m_port == 0 ? freePort() : m_port;
    m_server.setStandardErrorFile(m_directory + QStringLiteral("/log"), QIODevice::Append);
    launch(m_server, QStringLiteral("postgres"),
           {QStringLiteral("-D"), QStringLiteral("data"), QStringLiteral("-p"), QString::number(m_port)});
    const QByteArray parameters = adminParameters(QStringLiteral("postgres")).toUtf8();
    while (PQping(parameters.constData()) != PQPING_OK) {
        if (!m_server.waitForFinished(20)) continue;
        QFile log(m_directory + QStringLiteral("/log"));
        require(log.open(QIODevice::ReadOnly), QStringLiteral("no log"));
        fatalError(log.readAll().toStdString());
    }
}

QString PostgresServer::adminParameters(const QString& database) const {
    return QStringLiteral("host='%1' port=%2 user=admin dbname=%3")
        .arg(m_directory)
        .arg(m_port)
        .arg(database);
}

void PostgresServer::handOver(const QString& path) {
    const auto* user = unprivileged();
    require(QFile::setPermissions(path, QFileInfo(path).permissions() & ~(groupsAccess | othersAccess)),
            path);
    require(user == nullptr || ::chown(QFile::encodeName(path).constData(), user->pw_uid, user->pw_gid) == 0,
            path);
}

ServerAccount PostgresServer::addUser(const QString& name) {
    run(QStringLiteral("CREATE ROLE %1 LOGIN PASSWORD 'secret of %1' IN ROLE quillet_users").arg(name));
    setPassword(name, QStringLiteral("secret of ") + name);
    return {QStringLiteral("127.0.0.1"), m_port, QStringLiteral("cloud"), name, {}, {}};
}

void PostgresServer::setPassword(const QString& user, const QString& password) {
    QFile file(passwordFile(m_directory));
    require(file.open(QIODevice::ReadWrite), QStringLiteral("no password file"));
    require(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner), QStringLiteral("no password file"));
    const QByteArray others = file.readAll();
    file.seek(0); // libpq takes the first line that fits
    file.write(QStringLiteral("*:*:*:%1:%2\n").arg(user, password).toUtf8() + others);
}

void PostgresServer::run(const QString& sql) {
    (void)value(sql);
}

QVariant PostgresServer::value(const QString& sql) {
    QSqlDatabase database = QSqlDatabase::database(m_directory, false);
    if (!database.isOpen()) {
        const bool isFirst = database.connectOptions().isEmpty();
        database.setConnectOptions(adminParameters(QLatin1StringView(isFirst ? "postgres" : "cloud")));
        require(database.open(), database.lastError().text());
    }
    QSqlQuery query(database);
    require(query.exec(sql), query.lastError().text());
    return query.next() ? query.value(0) : QVariant();
}

std::vector<pid_t> PostgresServer::processes() const {
    const auto postmaster = static_cast<pid_t>(m_server.processId());
    QFile children(QStringLiteral("/proc/%1/task/%1/children").arg(postmaster));
    require(children.open(QIODevice::ReadOnly), QStringLiteral("no list of processes"));
    std::vector<pid_t> all = {postmaster};
    for (const QByteArray& child : children.readAll().split(' '))
        if (!child.isEmpty()) all.push_back(child.toInt());
    return all;
}

void PostgresServer::signalAll(int signal) const {
    if (m_server.state() == QProcess::NotRunning) return;
    for (const pid_t process : processes())
        ::kill(process, signal);
}

void PostgresServer::kill() {
    QSqlDatabase::database(m_directory, false).close();
    // Stopped first: the postmaster must not see a child die and begin to tidy up.
    signalAll(SIGSTOP);
    const auto all = processes();
    signalAll(SIGKILL);
    m_server.waitForFinished();
    for (const pid_t orphan : all) // they have come to this process; Qt has waited for their parent
        ::waitpid(orphan, nullptr, 0);
}

void PostgresServer::freeze() {
    signalAll(SIGSTOP);
}

void PostgresServer::thaw() {
    signalAll(SIGCONT);
}

} // namespace platform::testing
