#pragma once

#include "platform/cloud/CloudAccount.h"

#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <sys/types.h>
#include <vector>

namespace platform::testing {

// A real PostgreSQL server of this test alone: on a free loopback port, in a temporary directory, run by an
// unprivileged user. Its database is called "cloud". Server, directory and all go with this object, and also
// when the test is killed. Whatever does not work here aborts the test.
//
// Passwords are in a password file that PGPASSFILE names, as on a user's machine.
class PostgresServer {
public:
    enum class Schema { Installed, None };
    // `settings` are lines of postgresql.conf. Not synced to disk, unless these say so.
    explicit PostgresServer(Schema schema = Schema::Installed, const QStringList& settings = {});
    ~PostgresServer();
    PostgresServer(const PostgresServer&) = delete;
    PostgresServer& operator=(const PostgresServer&) = delete;

    int port() const { return m_port; }

    // The server user's own; root may write there as well.
    QString directory() const { return m_directory; }

    // Gives a file, or a folder, to the user that servers run as, and to nobody else.
    static void handOver(const QString& path);

    // A new role that is a member of quillet_users.
    ServerAccount addUser(const QString& name);
    void setPassword(const QString& user, const QString& password); // in the password file alone

    // As the superuser.
    void run(const QString& sql);
    QVariant value(const QString& sql);

    // All of its processes at once, without a chance to write anything more.
    void kill();
    void start();
    // All of its processes stand still, with their sockets open.
    void freeze();
    void thaw();

private:
    void launch(QProcess& process, const QString& program, const QStringList& arguments) const;
    void initialise(const QStringList& settings);
    std::vector<pid_t> processes() const;
    void signalAll(int signal) const;
    QString adminParameters(const QString& database) const;

    QString m_directory;
    int m_port = 0;
    QProcess m_cleaner; // removes the directory once its input ends, however this process does
    QProcess m_server;
};

} // namespace platform::testing
