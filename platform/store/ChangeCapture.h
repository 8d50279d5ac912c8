#pragma once

#include "platform/store/StoreError.h"

namespace platform {

class SqliteConnection;
struct StoreChanges;

// Told of everything that a context writes into its store, in the transaction that writes it: what it notes
// in the file is there if the save is, and only then. An error of it fails the save. The thread of the store.
class ChangeCapture {
public:
    ChangeCapture() = default;
    virtual ~ChangeCapture() = default;
    ChangeCapture(const ChangeCapture&) = delete;
    ChangeCapture& operator=(const ChangeCapture&) = delete;

    // In a transaction of its own, before anything of the store is read: what was written while nobody
    // captured.
    virtual StoreResult<void> begin(SqliteConnection& connection) = 0;

    // Before `changes` are written, so that the file still has the values before.
    virtual StoreResult<void> capture(SqliteConnection& connection, const StoreChanges& changes) = 0;
};

} // namespace platform
