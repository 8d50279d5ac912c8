#pragma once

#include "platform/mirror/HybridClock.h"
#include "platform/mirror/ObjectState.h"

#include <functional>
#include <optional>
#include <utility>

namespace platform {

// An earlier text that its property's later one has displaced.
struct DisplacedText {
    QUuid object;
    const ObjectState& state; // of the object, merged
    QString property;
    QCborValue value;
    Stamp stamp;
};

// What the mirror leaves to its host.
struct MirrorPolicy {
    // A new object that keeps the text. Devices that meet the same conflict must make the same object: under
    // conflictCopyId(), and with all its writes at the text's own stamp. Nothing where it is not worth
    // keeping.
    std::function<std::optional<std::pair<QUuid, ObjectState>>(const DisplacedText&)> conflictCopy;

    int pageLimit = 400;           // records of a page that is read
    qsizetype pushLimit = 400;     // records of a push
    qsizetype pushBytes = 4 << 20; // and their bytes, beyond the first record
    WallTime reportInterval = 600'000;
    WallTime collectionInterval = WallTime{24} * 3600 * 1000;
    WallTime tombstoneAge = WallTime{30} * 24 * 3600 * 1000; // younger ones are not collected
    qint64 secondsOfSilence = qint64{90} * 24 * 3600;        // after which a device is no longer waited for
};

// The same on every device.
QUuid conflictCopyId(const DisplacedText& text);

} // namespace platform
