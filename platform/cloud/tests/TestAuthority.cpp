#include "platform/cloud/tests/TestAuthority.h"

#include "platform/cloud/tests/PostgresServer.h"
#include "platform/foundation/FatalError.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>

namespace platform::testing {

namespace {

constexpr auto script = R"sh(
set -e
openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 \
    -subj "/CN=test authority" -keyout ca.key -out ca.crt
openssl req -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes \
    -subj "/CN=$1" -keyout server.key -out server.csr
printf 'subjectAltName=DNS:%s\n' "$1" > names
openssl x509 -req -days 2 -in server.csr -CA ca.crt -CAkey ca.key -CAcreateserial -extfile names -out server.crt
)sh";

} // namespace

TestAuthority::TestAuthority(const QString& host) {
    QProcess shell;
    shell.setWorkingDirectory(m_directory.path());
    shell.start(QStringLiteral("sh"),
                {QStringLiteral("-c"), QLatin1StringView(script), QStringLiteral("authority"), host});
    if (!shell.waitForFinished() || shell.exitCode() != 0)
        fatalError(shell.readAllStandardError().toStdString());
}

QStringList TestAuthority::serverSettings() const {
    const auto path = [this](const char* name) { return m_directory.filePath(QLatin1StringView(name)); };
    PostgresServer::handOver(path("server.key"));
    PostgresServer::handOver(m_directory.path());
    return {QStringLiteral("ssl = on"), QStringLiteral("ssl_cert_file = '%1'").arg(path("server.crt")),
            QStringLiteral("ssl_key_file = '%1'").arg(path("server.key"))};
}

} // namespace platform::testing
