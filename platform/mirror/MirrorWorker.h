#pragma once

#include "platform/mirror/Backoff.h"
#include "platform/mirror/CloudMirror.h"
#include "platform/mirror/Mirror.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <atomic>
#include <chrono>
#include <optional>

namespace platform {

// What a CloudMirror does on its thread: decides when to look, opens what it needs, and runs the mirrors of
// the zones one after the other. post(), postFinish() and interrupt() are for any thread.
class MirrorWorker : public QObject {
public:
    enum class Wake { LocalChange, RemoteChange, Foreground, AccountChange };

    MirrorWorker(AccountReader readAccount, StoreOpener open, MirroredZones zones,
                 std::function<void(const MirrorStatus&)> onStatus);
    ~MirrorWorker() override;

    void post(Wake wake);
    // Ends the thread, after a last run where there is something to send.
    void postFinish();
    // The request that is under way, and every later one, fails soon.
    void interrupt();

private:
    struct Zone {
        std::unique_ptr<MirroredZone> mirrored;
        MirrorStorage* storage = nullptr; // while it is open
        std::optional<Mirror> mirror;     // between the store that is open and the zone's storage
    };

    void wake(Wake wake);
    void finish();
    void runAfter(std::chrono::milliseconds delay);
    void run();
    // Whether it has to go on at once.
    MirrorResult<bool> synchronize();
    MirrorResult<bool> synchronize(Zone& zone, CloudStore& store);
    // Gives the latest trouble; zones without any are gathered all the same.
    std::optional<StoreError> gatherAll();
    StoreResult<void> gather(Zone& zone);
    static void leave(Zone& zone, const StoreError& error);
    MirrorResult<CloudStore*> openStore();
    CloudResult<std::unique_ptr<CloudStore>> openAndSubscribe(const StoreOpener& open,
                                                              const CloudAccount& account);
    void forgetStore();
    void showStatus(const MirrorStatus& status);
    std::chrono::milliseconds pollDelay();

    CloudConnection m_connection;
    std::vector<Zone> m_zones;
    std::function<void(const MirrorStatus&)> m_onStatus;
    MirrorStatus m_status;

    QTimer m_timer{this};
    Backoff m_backoff;
    Backoff m_behind; // of a server that is written to faster than this device can follow
    Backoff m_idle;   // between polls of a server that tells nothing
    CloudStore::Notifications m_notifications = CloudStore::Notifications::None;
    std::optional<qint64> m_seenRevision; // the server's, at the start of the latest run that went through

    std::atomic<bool> m_hasLocalChange = true;
};

} // namespace platform
