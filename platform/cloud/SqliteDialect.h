#pragma once

#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/SqlDialect.h"

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QTimer>

#include <sys/types.h>
#include <utility>

namespace platform {

// One SQLite file, with a rollback journal, so that it may lie on a disk that machines share, if that disk's
// locks work. Its one owner is whoever may open it. Subscribers hear of writes by this machine's programs
// alone, within some 20 ms; what another machine writes to a shared disk is found by polling.
class SqliteDialect : public SqlDialect {
public:
    SqliteDialect(QString path, Deadline deadline, MissingFile missingFile);

    const Words& words() const override;
    QString batchSource(const std::vector<SqlBatch::Column>& columns) const override;
    std::vector<QVariantList> batchValues(const SqlBatch& batch) const override;
    CKError errorOf(const QSqlError& error) const override;
    CloudResult<std::unique_ptr<SqlConnection>> connect(CallLimit limit) override;
    bool isCurrent() const override;

    // SQLite waits for others' locks up to the deadline by itself. Nothing ends a statement that runs.
    void beginCall(CallLimit) override {}

    void endCall() override {}

    CloudResult<void> announce(SqlConnection&) override { return {}; }

    CloudResult<CloudStore::Notifications> subscribe(SqlConnection& connection,
                                                     std::function<void()> observer) override;

private:
    // Whether the path names a file, after one that may be made has been.
    bool isThere() const;
    using FileIdentity = std::pair<dev_t, ino_t>;
    std::optional<FileIdentity> identity() const; // of the file that the path names now

    QString m_path;
    Deadline m_deadline;
    MissingFile m_missingFile;
    std::optional<FileIdentity> m_opened;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
    std::unique_ptr<QTimer> m_delay;
};

} // namespace platform
