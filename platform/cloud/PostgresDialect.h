#pragma once

#include "platform/cloud/CloudAccount.h"
#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/OpeningSocket.h"
#include "platform/cloud/ServerParameters.h"
#include "platform/cloud/Socket.h"
#include "platform/cloud/SqlDialect.h"
#include "platform/cloud/Watchdog.h"

#include <QtCore/QObject>

namespace platform {

// PostgreSQL 13 and later, and what speaks its protocol and its SQL. The owner is the role that the server
// has authenticated. A server that falls silent is hung up on when the call's limit has passed.
class PostgresDialect : public SqlDialect {
public:
    PostgresDialect(ServerAccount account, Deadline deadline);

    const Words& words() const override;
    QString batchSource(const std::vector<SqlBatch::Column>& columns) const override;
    std::vector<QVariantList> batchValues(const SqlBatch& batch) const override;
    CKError errorOf(const QSqlError& error) const override;
    CloudResult<std::unique_ptr<SqlConnection>> connect(CallLimit limit) override;
    bool isCurrent() const override;
    void beginCall(CallLimit limit) override;
    void endCall() override;
    CloudResult<void> announce(SqlConnection& connection) override;
    CloudResult<CloudStore::Notifications> subscribe(SqlConnection& connection,
                                                     std::function<void()> observer) override;

private:
    CloudResult<void> open(SqlConnection& connection, const ServerParameters& parameters);
    CloudResult<void> setUp(SqlConnection& connection);
    CloudResult<void> checkSchema(SqlConnection& connection);
    CloudResult<void> probeNotifications(SqlConnection& connection);
    void setSocket(Socket socket, std::optional<OpeningSocket> opening);
    void hangUp();

    ServerAccount m_account;
    Deadline m_deadline;
    QString m_channel;                       // of notifications among the user's devices
    std::optional<bool> m_hasNotifications;  // once it is known
    std::unique_ptr<QObject> m_subscription; // the receiver of the driver's signals

    std::mutex m_mutex;                     // for these two, with the watchdog's thread
    Socket m_socket;                        // of the connection
    std::optional<OpeningSocket> m_opening; // while it is being made

    Watchdog m_watchdog;
};

} // namespace platform
