#include "Quillet/core/StoreCheck.h"

#include "platform/foundation/DatedFile.h"
#include "platform/foundation/Durability.h"
#include "platform/foundation/Log.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QUrl>

namespace quillet {

using platform::logLine;

void checkStore(platform::PersistentStoreDescription& description,
                const platform::PersistentStoreCoordinator& coordinator) {
    logLine(QStringLiteral("☁️ Store descriptions"));
    description.shouldInferMappingModelAutomatically = true;
    description.shouldMigrateStoreAutomatically = true;
    if (!description.path) return;
    const QString url = QUrl::fromLocalFile(*description.path).toString();
    logLine(QStringLiteral("☁️ Url ") + url);
    const auto metadata = platform::PersistentStoreCoordinator::metadata(*description.path);
    if (!metadata) return; // no file yet, mostly; a file that is no store of ours is for the load to refuse
    // A newer program's store is not thrown away: the load refuses it and leaves it alone.
    if (metadata->modelVersion > coordinator.managedObjectModel()->version()) return;
    if (coordinator.isCompatible(*metadata)) {
        logLine(QStringLiteral("☁️ Store at %1 is compatible ").arg(url));
        return;
    }
    const bool moved = QFile::rename(*description.path, platform::datedBeside(*description.path));
    // A move that a power cut undoes is made again at the next start.
    if (moved) (void)platform::syncToDisk(QFileInfo(*description.path).absolutePath());
    logLine(QStringLiteral("☁️ Removed a store at ") + url);
}

} // namespace quillet
