#pragma once

#include "platform/foundation/Observable.h"
#include "platform/mirror/CloudMirror.h"
#include "platform/store/PersistentContainer.h"

namespace platform {

// A container whose store is mirrored to the user's private database. Every save is captured from the first
// on, whether there is an account or not, so that an account that comes later finds everything. Main thread.
class PersistentCloudContainer final : public PersistentContainer {
public:
    // As PersistentContainer; the policy is the mirror's.
    PersistentCloudContainer(const QString& name, std::shared_ptr<const ManagedObjectModel> model,
                             const QString& directory, QString zone, MirrorPolicy policy);
    ~PersistentCloudContainer();

    // Begins to mirror the store, if one is loaded, and with it the zones in `others`.
    void startMirroring(AccountReader readAccount, StoreOpener open, MirroredZones others);
    // Sends what is left if that takes a moment only.
    void stopMirroring();

    // Of the zones that are mirrored: any thread, once it has started.
    void noteLocalChange();
    void noteForeground();
    void noteAccountChange();

    const Observable<MirrorStatus>& mirrorStatus() const { return m_status; }

    Observable<MirrorStatus>& mirrorStatus() { return m_status; }

private:
    QString m_zone;
    MirrorPolicy m_policy;
    Observable<MirrorStatus> m_status;
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true); // main thread; for what is still queued
    std::unique_ptr<CloudMirror> m_mirror;
    Subscription m_saves;
};

} // namespace platform
