#include "platform/cloud/ServerSchema.h"
#include "platform/cloud/tests/CloudFixture.h"

#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>
#include <gtest/gtest.h>

using namespace platform;
using namespace platform::testing;

namespace {

const QString zone = QStringLiteral("zone");
const QStringList tables = {QStringLiteral("heads"),  QStringLiteral("revisions"),
                            QStringLiteral("zones"),  QStringLiteral("records"),
                            QStringLiteral("assets"), QStringLiteral("asset_uses"),
                            QStringLiteral("devices")};

// What a user can do by hand with the password of the account.
class HandWritten {
public:
    explicit HandWritten(const ServerAccount& account) {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), account.user);
        database.setHostName(account.host);
        database.setPort(account.port);
        database.setDatabaseName(account.database);
        database.setUserName(account.user);
        EXPECT_TRUE(database.open());
        m_query = QSqlQuery(database);
    }

    // The rows that it gives or changes; -1 for what is not permitted.
    int rows(const QString& sql) {
        if (m_query.exec(sql)) return m_query.isSelect() ? m_query.size() : m_query.numRowsAffected();
        EXPECT_EQ(m_query.lastError().nativeErrorCode(), QStringLiteral("42501")) << sql.toStdString();
        return -1;
    }

private:
    QSqlQuery m_query;
};

// One row in every table.
void fill(const ServerAccount& account) {
    const auto store = openStore(account);
    Device device(*store, zone);
    auto one = record(QStringLiteral("mine"), account.user.toUtf8());
    one.assets = {"hash"};
    auto push = device.pushOf({one});
    push.assets = {{"hash", account.user.toUtf8()}};
    EXPECT_EQ(device.push(push)->outcome, PushOutcome::Committed);
}

} // namespace

TEST(Owners, NeverSeeOrChangeEachOthersRowsNotEvenWithSqlOfTheirOwn) {
    PostgresServer server;
    const auto alice = server.addUser(QStringLiteral("alice"));
    const auto bob = server.addUser(QStringLiteral("bob"));
    fill(alice);
    HandWritten hand(bob);
    for (const QString& table : tables) {
        SCOPED_TRACE(table.toStdString());
        const auto rows = [&hand, &table](const char* sql) {
            return hand.rows(QLatin1StringView(sql).arg(table));
        };
        ASSERT_EQ(server.value(QStringLiteral("SELECT count(*) FROM quillet_%1").arg(table)).toInt(), 1);
        EXPECT_EQ(rows("SELECT * FROM quillet_%1"), 0);
        EXPECT_LE(rows("UPDATE quillet_%1 SET owner = current_user"), 0);
        EXPECT_LE(rows("UPDATE quillet_%1 SET owner = owner WHERE owner = 'alice'"), 0);
        EXPECT_LE(rows("DELETE FROM quillet_%1 WHERE owner = 'alice'"), 0);
        EXPECT_EQ(rows("TRUNCATE quillet_%1"), -1);
        EXPECT_EQ(rows("ALTER TABLE quillet_%1 DISABLE ROW LEVEL SECURITY"), -1);
        EXPECT_EQ(rows("CREATE POLICY mine ON quillet_%1 USING (true)"), -1);
    }
    EXPECT_EQ(hand.rows(QStringLiteral("SET ROLE alice")), -1);
    EXPECT_EQ(hand.rows(QStringLiteral("INSERT INTO quillet_zones VALUES ('alice', 'mine too', 0)")), -1);
    EXPECT_EQ(hand.rows(QStringLiteral("INSERT INTO quillet_zones VALUES ('alice', 'zone', 9)"
                                       " ON CONFLICT (owner, zone) DO UPDATE SET horizon = 9")),
              -1);
    EXPECT_EQ(hand.rows(QStringLiteral("UPDATE quillet_schema SET version = 9")), -1);

    fill(bob); // under the same names
    EXPECT_EQ(hand.rows(QStringLiteral("UPDATE quillet_records SET owner = 'alice'")), -1);
    EXPECT_EQ(hand.rows(QStringLiteral("UPDATE quillet_records SET payload = 'x'")), 1);
    const auto store = openStore(alice);
    Device device(*store, zone);
    ASSERT_TRUE(device.pull());
    ASSERT_EQ(device.records().size(), 1U);
    EXPECT_EQ(device.records().begin()->second.payload, "alice");
    EXPECT_EQ(store->asset("hash"), QByteArray("alice"));
    EXPECT_EQ(store->revision(), 1);
}

// The policies are the server's; the predicates of our statements have to hold without them.
TEST(Owners, AreKeptApartByTheStatementsToo) {
    PostgresServer server;
    const auto alice = server.addUser(QStringLiteral("alice"));
    const auto bob = server.addUser(QStringLiteral("bob"));
    for (const QString& table : tables)
        server.run(QStringLiteral("ALTER TABLE quillet_%1 DISABLE ROW LEVEL SECURITY").arg(table));
    fill(alice);
    const auto store = openStore(bob);
    Device device(*store, zone);
    ASSERT_TRUE(device.pull());
    EXPECT_TRUE(device.records().empty());
    EXPECT_EQ(store->revision(), 0);
    EXPECT_FALSE(store->asset("hash"));
    EXPECT_EQ(store->hasZone(zone), false);
    EXPECT_TRUE(store->devices(zone)->empty());
    fill(bob);
    auto dead = record(QStringLiteral("mine"));
    dead.isTombstone = true;
    ASSERT_TRUE(store->saveRecord(zone, dead)); // drops bob's use of the asset
    EXPECT_FALSE(store->asset("hash"));
    const auto hers = openStore(alice);
    EXPECT_EQ(hers->asset("hash"), QByteArray("alice"));
    EXPECT_EQ(hers->records(zone, QStringLiteral("Thing"))->size(), 1U);
}

// As on a server before version 15, where everybody may create things in the schema that all search.
TEST(Owners, CannotLayFunctionsInEachOthersWay) {
    PostgresServer server(PostgresServer::Schema::None);
    server.run(QStringLiteral("GRANT CREATE ON SCHEMA public TO PUBLIC"));
    server.run(serverSchema());
    const auto alice = server.addUser(QStringLiteral("alice"));
    const auto carol = server.addUser(QStringLiteral("carol"));
    const QString trap = QStringLiteral("CREATE FUNCTION public.unnest(%1) RETURNS SETOF %2 LANGUAGE sql"
                                        " AS 'SELECT NULL::%2 WHERE 1 / 0 = 1'");
    HandWritten hand(carol);
    EXPECT_EQ(hand.rows(trap.arg(QStringLiteral("text[]"), QStringLiteral("text"))), -1);
    server.run(trap.arg(QStringLiteral("text[]"), QStringLiteral("text")));
    server.run(trap.arg(QStringLiteral("boolean[]"), QStringLiteral("boolean")));
    fill(alice);
    const auto store = openStore(alice);
    Device device(*store, zone);
    ASSERT_TRUE(device.pull());
    auto collected = device.pushOf({});
    collected.collected = {QStringLiteral("nobody")};
    EXPECT_TRUE(device.push(collected));
}
