#include "platform/cloud/PostgresDialect.h"

#include "platform/cloud/CloudTry.h"
#include "platform/cloud/ServerProbe.h"
#include "platform/cloud/ServerSchema.h"
#include "platform/cloud/SqlConnection.h"
#include "platform/cloud/SqlState.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QPointer>
#include <QtCore/QSocketNotifier>
#include <QtCore/QStringList>
#include <QtSql/QSqlDriver>

#include <algorithm>
#include <libpq-fe.h>

namespace platform {

namespace {

using Kind = SqlBatch::Kind;

// An element of an array as text. Bytes are sent in hexadecimal, which needs no escaping on any level.
QString elementOf(const QVariant& value, Kind kind) {
    if (kind == Kind::Flag) return value.toBool() ? QStringLiteral("t") : QStringLiteral("f");
    if (kind == Kind::Bytes) return u'"' + QString::fromLatin1(value.toByteArray().toHex()) + u'"';
    QString text = value.toString();
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + text + u'"';
}

QString arrayOf(const SqlBatch& batch, qsizetype column) {
    QStringList elements;
    for (const QVariantList& row : batch.rows)
        elements.append(elementOf(row[column], batch.columns[static_cast<std::size_t>(column)].kind));
    return u'{' + elements.join(u',') + u'}';
}

// Qt's connect options, which it hands to libpq.
QString optionsOf(const ServerParameters& parameters) {
    QStringList options;
    for (const auto& [key, value] : parameters) {
        QString quoted = value;
        quoted.replace(u'\\', QStringLiteral("\\\\")).replace(u'\'', QStringLiteral("\\'"));
        options.append(QStringLiteral("%1='%2'").arg(key, quoted));
    }
    return options.join(u' ');
}

// The parameters for the address that the probe found to work, within what is left of the call's time.
ServerParameters atAddress(ServerParameters parameters, const QString& address, CallLimit limit) {
    const auto left =
        std::chrono::ceil<std::chrono::seconds>(limit - std::chrono::steady_clock::now()).count();
    for (auto& [key, value] : parameters)
        if (key == QStringLiteral("hostaddr")) value = address;
    parameters.emplace_back(QStringLiteral("connect_timeout"),
                            QString::number(std::max<qint64>(2, left))); // libpq takes no less
    return parameters;
}

// libpq's connection inside of Qt's; null where there is none. The type goes by either of its names.
PGconn* handleOf(const QSqlDatabase& database) {
    const QVariant handle = database.driver()->handle();
    const QByteArrayView type(handle.typeName());
    return type == "PGconn*" || type == "pg_conn*" ? *static_cast<PGconn* const*>(handle.constData())
                                                   : nullptr;
}

std::unexpected<CKError> error(CKError::Code code, const QString& message) {
    return std::unexpected(CKError{code, message});
}

} // namespace

PostgresDialect::PostgresDialect(ServerAccount account, Deadline deadline)
    : m_account(std::move(account))
    , m_deadline(deadline)
    , m_watchdog([this] { hangUp(); }) {}

const SqlDialect::Words& PostgresDialect::words() const {
    static const Words words = {
        QStringLiteral("current_user"),
        QStringLiteral("CAST(extract(epoch FROM now()) AS bigint)"),
        QStringLiteral("BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"),
        QStringLiteral("BEGIN"),
    };
    return words;
}

QString PostgresDialect::batchSource(const std::vector<SqlBatch::Column>& columns) const {
    QStringList selected;
    QStringList arrays;
    QStringList names;
    for (const auto& [name, kind] : columns) {
        const bool isBytes = kind == Kind::Bytes;
        selected.append(isBytes ? QStringLiteral("decode(%1, 'hex') AS %1").arg(name) : name);
        // By its whole name: a function of another schema for just these types would be preferred.
        arrays.append(QStringLiteral("pg_catalog.unnest(CAST(? AS %1))")
                          .arg(kind == Kind::Flag ? QStringLiteral("boolean[]") : QStringLiteral("text[]")));
        names.append(name);
    }
    const QString comma = QStringLiteral(", ");
    return QStringLiteral("(SELECT %1 FROM ROWS FROM (%2) AS arrays (%3)) AS batch")
        .arg(selected.join(comma), arrays.join(comma), names.join(comma));
}

std::vector<QVariantList> PostgresDialect::batchValues(const SqlBatch& batch) const {
    QVariantList arrays;
    for (qsizetype column = 0; column < static_cast<qsizetype>(batch.columns.size()); ++column)
        arrays.append(arrayOf(batch, column));
    return {arrays};
}

// The server's own text may quote values.
CKError PostgresDialect::errorOf(const QSqlError& error) const {
    const QString state = error.nativeErrorCode();
    if (state.isEmpty())
        return {CKError::Code::NetworkFailure, QStringLiteral("the connection to the server broke")};
    return {codeOfSqlState(state.toStdString()),
            QStringLiteral("the server answered with SQLSTATE %1").arg(state)};
}

CloudResult<std::unique_ptr<SqlConnection>> PostgresDialect::connect(CallLimit limit) {
    m_subscription.reset();
    auto opening = OpeningSocket::await(m_account.port, limit);
    if (!opening)
        return error(CKError::Code::NetworkFailure, QStringLiteral("other connections take too long"));
    const auto parameters = serverParameters(m_account, m_deadline);
    if (!parameters) return std::unexpected(parameters.error());
    const auto address = probeServer(*parameters, limit);
    if (!address) return std::unexpected(address.error());
    setSocket(Socket(), std::move(opening)); // the probe keeps to the limit by itself
    auto connection = std::make_unique<SqlConnection>(*this, QStringLiteral("QPSQL"));
    CLOUD_TRY(open(*connection, atAddress(*parameters, *address, limit)));
    CLOUD_TRY(setUp(*connection));
    CLOUD_TRY(checkSchema(*connection));
    CLOUD_TRY(probeNotifications(*connection));
    return connection;
}

CloudResult<void> PostgresDialect::open(SqlConnection& connection, const ServerParameters& parameters) {
    QSqlDatabase database = connection.database();
    database.setConnectOptions(optionsOf(parameters));
    Socket socket(database.open() ? PQsocket(handleOf(database)) : -1);
    const bool isOpen = socket.descriptor() >= 0;
    setSocket(std::move(socket), std::nullopt);
    if (isOpen) return {};
    return error(CKError::Code::NetworkFailure, QStringLiteral("the connection to the server broke"));
}

// A device that goes away in the middle of a transaction must not hold up the user's others for the hours
// that TCP would give it.
CloudResult<void> PostgresDialect::setUp(SqlConnection& connection) {
    const qint64 limit = m_deadline.count();
    CLOUD_TRY(connection.runOnce(QStringLiteral("SET idle_in_transaction_session_timeout TO %1").arg(limit)));
    CLOUD_TRY(connection.runOnce(QStringLiteral("SET statement_timeout TO %1").arg(limit)));
    return connection.runOnce(QStringLiteral("SET bytea_output TO hex")); // Qt's is up to twice as long
}

CloudResult<void> PostgresDialect::checkSchema(SqlConnection& connection) {
    int version = 0;
    const auto read = connection.queryOnce(
        QStringLiteral("SELECT version, current_user FROM quillet_schema"),
        [this, &version](const QSqlQuery& row) {
            version = row.value(0).toInt();
            const QByteArray owner = row.value(1).toString().toUtf8();
            const QByteArray hash = QCryptographicHash::hash(owner, QCryptographicHash::Sha256);
            m_channel = QStringLiteral("quillet_") + QString::fromLatin1(hash.toHex().left(32));
        });
    if (!read && read.error().code == CKError::Code::PermissionFailure)
        return error(CKError::Code::PermissionFailure,
                     QStringLiteral("the user is not a member of quillet_users"));
    if (!read && read.error().code != CKError::Code::ServiceUnavailable) return read;
    if (!read || version < serverSchemaVersion)
        return error(CKError::Code::ServiceUnavailable, QStringLiteral("the server has no Quillet schema"));
    if (version > serverSchemaVersion)
        return error(CKError::Code::IncompatibleVersion,
                     QStringLiteral("the server's schema is of a newer version"));
    return {};
}

CloudResult<void> PostgresDialect::probeNotifications(SqlConnection& connection) {
    if (m_hasNotifications) return {};
    const auto listening = connection.runOnce(QStringLiteral("LISTEN %1").arg(m_channel));
    if (!listening && listening.error().code == CKError::Code::NetworkFailure) return listening;
    m_hasNotifications = listening.has_value();
    if (!listening) return {};
    return connection.runOnce(QStringLiteral("UNLISTEN %1").arg(m_channel));
}

bool PostgresDialect::isCurrent() const {
    return !m_socket.isAtEnd();
}

void PostgresDialect::beginCall(CallLimit limit) {
    m_watchdog.watch(limit);
}

void PostgresDialect::endCall() {
    m_watchdog.callOff();
}

void PostgresDialect::interrupt() {
    m_watchdog.watch(Watchdog::Clock::now());
}

CloudResult<void> PostgresDialect::announce(SqlConnection& connection) {
    if (!m_hasNotifications.value_or(false)) return {};
    return connection.runOnce(QStringLiteral("NOTIFY %1").arg(m_channel));
}

CloudResult<CloudStore::Notifications> PostgresDialect::subscribe(SqlConnection& connection,
                                                                  std::function<void()> observer) {
    if (!m_hasNotifications.value_or(false)) return CloudStore::Notifications::None;
    QSqlDriver* const driver = connection.database().driver();
    if (!driver->subscribedToNotifications().contains(m_channel) &&
        !driver->subscribeToNotification(m_channel))
        return std::unexpected(errorOf(driver->lastError()));
    m_subscription = std::make_unique<QObject>();
    QObject::connect(driver, &QSqlDriver::notification, m_subscription.get(),
                     [observer](const QString&, QSqlDriver::NotificationSource source, const QVariant&) {
                         if (source != QSqlDriver::SelfSource) observer();
                     });
    // A server that goes is noticed at once; the driver would let its end stand for input for ever.
    auto* const end = new QSocketNotifier(m_socket.descriptor(), QSocketNotifier::Read, m_subscription.get());
    QObject::connect(end, &QSocketNotifier::activated, end,
                     [this, end, observer, driver = QPointer<QSqlDriver>(driver)] {
                         if (!m_socket.isAtEnd()) return;
                         end->setEnabled(false);
                         if (driver) driver->close();
                         observer();
                     });
    return CloudStore::Notifications::Pushed;
}

void PostgresDialect::setSocket(Socket socket, std::optional<OpeningSocket> opening) {
    const std::scoped_lock lock(m_mutex);
    m_socket = std::move(socket);
    m_opening = std::move(opening);
}

void PostgresDialect::hangUp() {
    const std::scoped_lock lock(m_mutex);
    if (m_opening)
        m_opening->find().shutDown();
    else
        m_socket.shutDown();
}

} // namespace platform
