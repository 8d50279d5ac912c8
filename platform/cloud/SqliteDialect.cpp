#include "platform/cloud/SqliteDialect.h"

#include "platform/cloud/CloudTry.h"
#include "platform/cloud/SqlConnection.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

using Code = CKError::Code;

constexpr int applicationId = 0x51754364; // "QuCd"
constexpr int schemaVersion = 1;

// A commit writes its pages one after the other.
constexpr int delayMilliseconds = 20;

const QStringList schema = {
    QStringLiteral("CREATE TABLE quillet_heads (owner TEXT NOT NULL PRIMARY KEY, epoch BLOB NOT NULL,"
                   " revision INTEGER NOT NULL, tag BLOB NOT NULL) STRICT"),
    QStringLiteral("CREATE TABLE quillet_revisions (owner TEXT NOT NULL, revision INTEGER NOT NULL,"
                   " tag BLOB NOT NULL, PRIMARY KEY (owner, revision)) STRICT, WITHOUT ROWID"),
    QStringLiteral("CREATE TABLE quillet_zones (owner TEXT NOT NULL, zone TEXT NOT NULL,"
                   " horizon INTEGER NOT NULL, PRIMARY KEY (owner, zone)) STRICT"),
    QStringLiteral("CREATE TABLE quillet_records (owner TEXT NOT NULL, zone TEXT NOT NULL,"
                   " name TEXT NOT NULL, type TEXT NOT NULL, revision INTEGER NOT NULL,"
                   " tombstone INTEGER NOT NULL, payload BLOB NOT NULL,"
                   " PRIMARY KEY (owner, zone, name)) STRICT"),
    QStringLiteral("CREATE INDEX quillet_records_by_revision"
                   " ON quillet_records (owner, zone, revision, name)"),
    QStringLiteral("CREATE TABLE quillet_assets (owner TEXT NOT NULL, hash BLOB NOT NULL,"
                   " content BLOB NOT NULL, PRIMARY KEY (owner, hash)) STRICT"),
    QStringLiteral("CREATE TABLE quillet_asset_uses (owner TEXT NOT NULL, zone TEXT NOT NULL,"
                   " name TEXT NOT NULL, hash BLOB NOT NULL,"
                   " PRIMARY KEY (owner, zone, name, hash)) STRICT, WITHOUT ROWID"),
    QStringLiteral("CREATE INDEX quillet_asset_uses_by_hash ON quillet_asset_uses (owner, hash)"),
    QStringLiteral("CREATE TABLE quillet_devices (owner TEXT NOT NULL, zone TEXT NOT NULL,"
                   " device BLOB NOT NULL, revision INTEGER NOT NULL, tag BLOB, seen_at INTEGER NOT NULL,"
                   " PRIMARY KEY (owner, zone, device)) STRICT"),
};

const QStringList marks = {
    QStringLiteral("PRAGMA application_id = %1").arg(applicationId),
    QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion),
};

// SQLite's primary result codes, from its documentation.
Code codeOf(int result) {
    switch (result & 0xFF) {
    case 5:
    case 6:
        return Code::RequestRateLimited;
    case 8:
        return Code::PermissionFailure;
    case 10:
        return Code::NetworkFailure; // of the disk: a commit may have reached it
    case 1:
    case 11:
        return Code::ServiceUnavailable; // without our tables, or damaged
    case 13:
    case 18:
        return Code::QuotaExceeded;
    case 14:
        return Code::NetworkUnavailable;
    case 19:
    case 20:
    case 26:
        return Code::InvalidArguments;
    default:
        return Code::InternalError;
    }
}

std::unexpected<CKError> error(Code code, const QString& message) {
    return std::unexpected(CKError{code, message});
}

CloudResult<qint64> number(SqlConnection& connection, const QString& sql) {
    qint64 number = 0;
    CLOUD_TRY(
        connection.queryOnce(sql, [&number](const QSqlQuery& row) { number = row.value(0).toLongLong(); }));
    return number;
}

// Whether the tables are as we make them. A view in a table's place, or a trigger, could run for ever. SQLite
// keeps the statements letter for letter; what has none are the indexes of the tables' own keys.
CloudResult<void> checkSchema(SqlConnection& connection) {
    QStringList statements;
    CLOUD_TRY(connection.queryOnce(
        QStringLiteral("SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL"),
        [&statements](const QSqlQuery& row) { statements.append(row.value(0).toString()); }));
    statements.sort();
    QStringList ours = schema;
    ours.sort();
    if (statements == ours) return {};
    return error(Code::ServiceUnavailable, QStringLiteral("the file's tables are not as they were made"));
}

// Whether the file is ours; false for one that nothing has been written to.
CloudResult<bool> isOurs(SqlConnection& connection) {
    const auto id = number(connection, QStringLiteral("PRAGMA application_id"));
    if (!id) return std::unexpected(id.error());
    const auto version = number(connection, QStringLiteral("PRAGMA user_version"));
    if (!version) return std::unexpected(version.error());
    const auto things = number(connection, QStringLiteral("SELECT count(*) FROM sqlite_schema"));
    if (!things) return std::unexpected(things.error());
    if (*id == 0 && *version == 0 && *things == 0) return false;
    if (*id != applicationId)
        return error(Code::InvalidArguments, QStringLiteral("the file is another program's"));
    if (*version > schemaVersion)
        return error(Code::IncompatibleVersion, QStringLiteral("the file is of a newer version"));
    CLOUD_TRY(checkSchema(connection));
    return true;
}

// Opens what is there and makes nothing, also where it goes in this very moment.
QString uriOf(const QString& path) {
    return QStringLiteral("file://%1?mode=rw")
        .arg(QString::fromLatin1(QUrl::toPercentEncoding(path, QByteArrayLiteral("/"))));
}

// Empty, for its owner alone. What cannot be made is found to be missing.
void makeFile(const QString& path) {
    const int made = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                            S_IRUSR | S_IWUSR);
    if (made >= 0) ::close(made);
}

// As isOurs(), on one state of the file: between two reads another program may make the tables.
CloudResult<bool> isOursByOneState(SqlConnection& connection) {
    bool isMade = false;
    CLOUD_TRY(connection.read([&connection, &isMade]() -> CloudResult<void> {
        const auto made = isOurs(connection);
        if (!made) return std::unexpected(made.error());
        isMade = *made;
        return {};
    }));
    return isMade;
}

// Again under the lock: two programs may meet at a new file.
CloudResult<void> makeSchema(SqlConnection& connection) {
    return connection.write([&connection]() -> CloudResult<SqlConnection::Ending> {
        const auto isMade = isOurs(connection);
        if (!isMade) return std::unexpected(isMade.error());
        if (*isMade) return SqlConnection::Ending::Rollback;
        for (const QString& statement : schema + marks)
            CLOUD_TRY(connection.runOnce(statement));
        return SqlConnection::Ending::Commit;
    });
}

} // namespace

SqliteDialect::SqliteDialect(QString path, Deadline deadline, MissingFile missingFile)
    : m_path(std::move(path))
    , m_deadline(deadline)
    , m_missingFile(missingFile) {}

const SqlDialect::Words& SqliteDialect::words() const {
    static const Words words = {
        QStringLiteral("''"),
        QStringLiteral("unixepoch()"),
        QStringLiteral("BEGIN"),
        QStringLiteral("BEGIN IMMEDIATE"),
    };
    return words;
}

QString SqliteDialect::batchSource(const std::vector<SqlBatch::Column>& columns) const {
    QStringList selected;
    for (const auto& column : columns)
        selected.append(QStringLiteral("? AS ") + column.name);
    return QStringLiteral("(SELECT %1) AS batch").arg(selected.join(QStringLiteral(", ")));
}

std::vector<QVariantList> SqliteDialect::batchValues(const SqlBatch& batch) const {
    return batch.rows;
}

CKError SqliteDialect::errorOf(const QSqlError& error) const {
    const int result = error.nativeErrorCode().toInt();
    return {codeOf(result), QStringLiteral("SQLite answered with result code %1").arg(result)};
}

CloudResult<std::unique_ptr<SqlConnection>> SqliteDialect::connect(CallLimit) {
    if (!isThere())
        return error(Code::NetworkUnavailable, QStringLiteral("the file of the cloud is not there"));
    auto connection = std::make_unique<SqlConnection>(*this, QStringLiteral("QSQLITE"));
    QSqlDatabase database = connection->database();
    database.setDatabaseName(uriOf(m_path));
    database.setConnectOptions(
        QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(m_deadline.count()));
    if (!database.open()) return std::unexpected(errorOf(database.lastError()));
    const auto isMade = isOursByOneState(*connection);
    if (!isMade) return std::unexpected(isMade.error());
    CLOUD_TRY(connection->runOnce(QStringLiteral("PRAGMA journal_mode = DELETE")));
    CLOUD_TRY(connection->runOnce(QStringLiteral("PRAGMA synchronous = FULL")));
    if (!*isMade) CLOUD_TRY(makeSchema(*connection));
    m_opened = identity();
    return connection;
}

// One that was there and is not is a disk that went away, or a user who wants it gone.
bool SqliteDialect::isThere() const {
    if (m_missingFile == MissingFile::Made && !m_opened) makeFile(m_path);
    return identity().has_value();
}

std::optional<SqliteDialect::FileIdentity> SqliteDialect::identity() const {
    struct stat status = {};
    if (::stat(QFile::encodeName(m_path).constData(), &status) != 0) return {};
    return FileIdentity{status.st_dev, status.st_ino};
}

bool SqliteDialect::isCurrent() const {
    return m_opened == identity();
}

CloudResult<CloudStore::Notifications> SqliteDialect::subscribe(SqlConnection&,
                                                                std::function<void()> observer) {
    m_delay = std::make_unique<QTimer>();
    m_delay->setSingleShot(true);
    m_delay->setInterval(delayMilliseconds);
    m_watcher = std::make_unique<QFileSystemWatcher>(QStringList{m_path, QFileInfo(m_path).path()});
    const auto changed = [this] {
        if (!m_delay->isActive()) m_delay->start();
    };
    QObject::connect(m_watcher.get(), &QFileSystemWatcher::fileChanged, m_delay.get(), changed);
    QObject::connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, m_delay.get(), changed);
    QObject::connect(m_delay.get(), &QTimer::timeout, m_delay.get(), std::move(observer));
    return CloudStore::Notifications::Pushed;
}

} // namespace platform
