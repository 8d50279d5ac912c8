#include "platform/store/StorePragmas.h"

namespace platform {

namespace {

// How much of the file SQLite keeps in memory, in KiB.
constexpr int cacheKibibytes = 8192;

} // namespace

StoreResult<void> setStorePragmas(SqliteConnection& connection) {
    // Rollback journal, for a file that several connections may share. EXTRA also syncs the folder after the
    // journal's removal, so that a commit cannot be undone by a power cut.
    STORE_TRY(connection.setPragma(QStringLiteral("journal_mode"), QStringLiteral("delete")));
    STORE_TRY(connection.setPragma(QStringLiteral("synchronous"), 3));
    STORE_TRY(connection.setPragma(QStringLiteral("foreign_keys"), 1));
    // The file may be damaged: check what is read.
    STORE_TRY(connection.setPragma(QStringLiteral("cell_size_check"), 1));
    STORE_TRY(connection.setPragma(QStringLiteral("cache_size"), -cacheKibibytes));
    return connection.setPatience(SqliteConnection::Patience::Normal);
}

} // namespace platform
