#pragma once

#include "platform/cloud/CloudStore.h"

#include <bitset>
#include <map>

namespace simulation {

// Edits by number; what somebody knows of an object is the set of edits that went into it.
using Edits = std::bitset<1024>;

// The cloud's database in memory: a value, so a backup is a copy. It knows one thing that no real one does:
// which edits are in a record, for the oracle.
struct Server {
    struct Row {
        platform::ZoneRecord record;
        Edits edits;
    };

    struct Device {
        qint64 revision = 0;
        qint64 heardAt = 0; // milliseconds
        QUuid lastTag;
    };

    QUuid epoch;
    qint64 revision = 0;
    qint64 horizon = 0;
    std::map<qint64, QUuid> tags;
    std::map<QString, Row> rows;
    std::map<QByteArray, QByteArray> assets;
    std::map<QUuid, Device> devices;

    platform::ZoneChanges changes(const QUuid& knownEpoch, const platform::ZonePosition& position,
                                  const QUuid& tag, int limit) const;
    platform::PushResult push(const platform::ZonePush& push, const std::map<QString, Edits>& edits,
                              qint64 now);

private:
    QUuid tagOf(qint64 at) const;
    void collectAssets();
};

} // namespace simulation
