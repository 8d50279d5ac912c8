#pragma once

#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

namespace platform::testing {

// An authority that was made for this test, and the certificate that it gave to one server. By openssl.
class TestAuthority {
public:
    // `host` is whom the server's certificate speaks for.
    explicit TestAuthority(const QString& host);

    QString certificate() const { return m_directory.filePath(QStringLiteral("ca.crt")); }

    // For PostgresServer: with TLS, by this certificate. Hands the files over to its user.
    QStringList serverSettings() const;

private:
    QTemporaryDir m_directory;
};

} // namespace platform::testing
