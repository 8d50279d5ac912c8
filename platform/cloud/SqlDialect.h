#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CloudStore.h"
#include "platform/cloud/SqlBatch.h"

#include <QtSql/QSqlError>

#include <chrono>
#include <functional>
#include <memory>

namespace platform {

class SqlConnection;

using CallLimit = std::chrono::steady_clock::time_point;

// What differs between the databases that keep a cloud. One for each store, and on its thread.
class SqlDialect {
public:
    SqlDialect() = default;
    virtual ~SqlDialect() = default;
    SqlDialect(const SqlDialect&) = delete;
    SqlDialect& operator=(const SqlDialect&) = delete;

    // What the words of SqlConnection's statements stand for.
    struct Words {
        QString owner; // of the rows that this user may see
        QString now;   // in seconds since 1970, by the server's clock
        QString beginReading;
        QString beginWriting;
    };

    virtual const Words& words() const = 0;
    // A relation with the batch's columns, made from the values that batchValues() gives.
    virtual QString batchSource(const std::vector<SqlBatch::Column>& columns) const = 0;
    // The values of each run that it takes to work through the batch.
    virtual std::vector<QVariantList> batchValues(const SqlBatch& batch) const = 0;
    // RequestRateLimited for a transaction that changed nothing and may be tried again at once.
    virtual CKError errorOf(const QSqlError& error) const = 0;

    // A connection to a database whose schema is known. Also after one that has broken.
    virtual CloudResult<std::unique_ptr<SqlConnection>> connect(CallLimit limit) = 0;
    // False where the connection is not to the account's database any more.
    virtual bool isCurrent() const = 0;
    // From the first of these to the second, what a server has not answered by the limit fails. A file's
    // statements only wait no longer than that for others' locks.
    virtual void beginCall(CallLimit limit) = 0;
    virtual void endCall() = 0;

    // Any thread: the call of a server that is under way, if any, fails at once instead.
    virtual void interrupt() {}

    // Tells others of a write, inside its transaction.
    virtual CloudResult<void> announce(SqlConnection& connection) = 0;
    // As CloudStore::subscribe(), for as long as the connection lives. The observer's thread is this one.
    virtual CloudResult<CloudStore::Notifications> subscribe(SqlConnection& connection,
                                                             std::function<void()> observer) = 0;
};

} // namespace platform
