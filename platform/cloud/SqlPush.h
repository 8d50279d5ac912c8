#pragma once

#include "platform/cloud/SqlConnection.h"

namespace platform {

// InvalidArguments for a push that no database could carry out: without a tag or a device, with a name that
// is empty or there twice.
CloudResult<void> checkPush(const ZonePush& push);

// Carries a push out, inside a transaction. The transaction must not be committed unless the outcome is
// Committed.
CloudResult<PushResult> applyPush(SqlConnection& connection, const ZonePush& push);

// Increments the user's revision outside of a push, inside a transaction, and gives the new one. Begins the
// user's history where there is none.
CloudResult<qint64> advanceHead(SqlConnection& connection);

} // namespace platform
