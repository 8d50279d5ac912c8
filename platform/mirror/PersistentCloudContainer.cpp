#include "platform/mirror/PersistentCloudContainer.h"

#include "platform/foundation/MainQueue.h"
#include "platform/mirror/MirrorCapture.h"
#include "platform/mirror/StoreZone.h"

#include <QtCore/QDateTime>

namespace platform {

PersistentCloudContainer::PersistentCloudContainer(const QString& name,
                                                   std::shared_ptr<const ManagedObjectModel> model,
                                                   const QString& directory, QString zone,
                                                   MirrorPolicy policy)
    : PersistentContainer(name, model, directory)
    , m_zone(std::move(zone))
    , m_policy(std::move(policy)) {
    for (auto& description : persistentStoreDescriptions())
        description.changeCapture = std::make_shared<MirrorCapture>(
            model, [] { return QDateTime::currentMSecsSinceEpoch(); }, QUuid::createUuid());
}

PersistentCloudContainer::~PersistentCloudContainer() = default;

void PersistentCloudContainer::startMirroring(AccountReader readAccount, StoreOpener open,
                                              MirroredZones others) {
    MirroredZones zones = std::move(others);
    if (viewContext().hasStore())
        for (const auto& description : persistentStoreDescriptions())
            if (description.path)
                zones.push_back(std::make_unique<StoreZone>(
                    m_zone, m_policy, *description.path, persistentStoreCoordinator().managedObjectModel()));
    const auto showStatus = [this, weak = std::weak_ptr(m_isAlive)](const MirrorStatus& status) {
        dispatchToMain([this, weak, status] {
            if (weak.lock()) m_status.set(status);
        });
    };
    m_mirror =
        std::make_unique<CloudMirror>(std::move(readAccount), std::move(open), std::move(zones), showStatus);
    m_saves = viewContext().onChange([this](const ContextChanges&) { noteLocalChange(); });
}

void PersistentCloudContainer::stopMirroring() {
    m_saves = {};
    m_mirror.reset();
}

void PersistentCloudContainer::noteLocalChange() {
    if (m_mirror) m_mirror->noteLocalChange();
}

void PersistentCloudContainer::noteForeground() {
    if (m_mirror) m_mirror->noteForeground();
}

void PersistentCloudContainer::noteAccountChange() {
    if (m_mirror) m_mirror->noteAccountChange();
}

} // namespace platform
