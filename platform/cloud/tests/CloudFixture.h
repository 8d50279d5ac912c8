#pragma once

#include "platform/cloud/OpenCloudStore.h"
#include "platform/cloud/tests/PostgresServer.h"

#include <QtCore/QTemporaryDir>

#include <map>
#include <optional>
#include <ostream>

namespace platform::testing {

// Long enough for a machine that does much else.
constexpr Deadline patient = std::chrono::seconds(60);

// A store or the end of the test.
std::unique_ptr<CloudStore> openStore(const CloudAccount& account, Deadline deadline = patient);

// An empty cloud of either kind, for one user.
class Cloud {
public:
    enum class Kind { File, Server };
    explicit Cloud(Kind kind);

    const CloudAccount& account() const { return m_account; }

    // The one server; none for a file.
    PostgresServer* server() { return m_server ? &*m_server : nullptr; }

private:
    QTemporaryDir m_directory;
    std::optional<PostgresServer> m_server;
    CloudAccount m_account;
};

// For the names of tests.
inline std::ostream& operator<<(std::ostream& out, Cloud::Kind kind) {
    return out << (kind == Cloud::Kind::File ? "File" : "Server");
}

ZoneRecord record(const QString& name, const QByteArray& payload = "payload");

// A device as the mirror is one: pushes on top of what it has read, and remembers its tags.
class Device {
public:
    Device(CloudStore& store, QString zone);

    // Reads everything that is new, in pages; the records that are there now, by name.
    CloudResult<void> pull(int limit = 100);

    const std::map<QString, ZoneRecord>& records() const { return m_records; }

    // A push of these on top of what was read, with nothing else in it.
    ZonePush pushOf(std::vector<ZoneRecord> records) const;
    // Makes the push, and takes its records for read where it is committed.
    CloudResult<PushResult> push(const ZonePush& push);

    CloudResult<PushResult> push(std::vector<ZoneRecord> records) { return push(pushOf(std::move(records))); }

    ZonePosition position;
    QUuid epoch;
    QUuid tag; // of the position
    ZoneHead head;
    bool isKnownHistory = false; // as of the last page

private:
    CloudStore& m_store;
    QString m_zone;
    QUuid m_device = QUuid::createUuid();
    QUuid m_lastTag;
    std::map<QString, ZoneRecord> m_records;
};

} // namespace platform::testing
