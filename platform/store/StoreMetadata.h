#pragma once

#include "platform/store/ManagedObjectModel.h"
#include "platform/store/SqliteConnection.h"

namespace platform {

// What a store says of itself.
struct StoreMetadata {
    int fileVersion = 0; // of the tables that do not depend on the model
    int modelVersion = 0;
    QByteArray modelHash;
    std::vector<EntityDescription> entities;
};

// Reads the metadata of an open file without changing it. Errors: NotADatabase where the file has none,
// Corrupt where it contradicts itself, TooNew where its form is one of a later program, which says nothing
// about its contents.
StoreResult<StoreMetadata> readMetadata(SqliteConnection& connection);

// Names `model` as the store's. Inside the transaction that makes or migrates the tables.
StoreResult<void> writeMetadata(SqliteConnection& connection, const ManagedObjectModel& model);

// Marks the file as one of this program and of this form of store. Inside the transaction that makes it.
StoreResult<void> markFile(SqliteConnection& connection);

// Brings a file of an earlier version to the current one, in one transaction.
StoreResult<void> upgradeFile(SqliteConnection& connection, const StoreMetadata& metadata);

// Whether the file is empty, so that a store can be made in it. An error as of readMetadata() where the file
// is another's or a later program's.
StoreResult<bool> isBlank(SqliteConnection& connection);

// The number of the last transaction that wrote rows.
StoreResult<qint64> storeRevision(SqliteConnection& connection);
StoreResult<void> setStoreRevision(SqliteConnection& connection, qint64 revision);

} // namespace platform
