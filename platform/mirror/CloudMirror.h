#pragma once

#include "platform/cloud/CloudConnection.h"
#include "platform/mirror/MirrorStatus.h"
#include "platform/mirror/MirroredZone.h"

#include <QtCore/QThread>

#include <functional>
#include <memory>
#include <vector>

namespace platform {

class MirrorWorker;

using MirroredZones = std::vector<std::unique_ptr<MirroredZone>>;

// Keeps what is on this device in step with the user's private database, from a thread of its own.
//
// A local change goes out at once; what others write comes when the server tells of it, and else with the
// next poll. While nothing can be reached the tries grow rarer, and local changes cause none. Main thread,
// but for noteLocalChange().
class CloudMirror {
public:
    // Account and store are asked for on the mirror's thread, and `onStatus` is called there, at each change.
    CloudMirror(AccountReader readAccount, StoreOpener open, MirroredZones zones,
                std::function<void(const MirrorStatus&)> onStatus);
    // Sends what is left if that takes a moment only, else breaks it off; the next start goes on.
    ~CloudMirror();

    CloudMirror(const CloudMirror&) = delete;
    CloudMirror& operator=(const CloudMirror&) = delete;

    // Any thread.
    void noteLocalChange();
    // The user has come back to the program: a good moment to look.
    void noteForeground();
    // Signed in, signed out, or as somebody else.
    void noteAccountChange();

private:
    QThread m_thread;
    std::unique_ptr<MirrorWorker> m_worker; // on that thread
};

} // namespace platform
