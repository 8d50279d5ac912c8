#pragma once

#include "platform/cloud/CloudAccount.h"

#include <optional>

namespace platform {

// libpq takes a host with commas for a list of hosts, whatever the first of them looks like.
bool isOneHost(const QString& host);

// Whether the host is this machine: the folder of a Unix socket, localhost, or a loopback address. A name
// that merely resolves to one is not.
bool isLocalHost(const QString& host);

// Why the account must not be used, as a sentence for the user; nothing where it may be. A server on another
// machine has to prove who it is before it gets a password: only sslmode verify-full with a file of
// authorities does that. Looks whether the file is there.
std::optional<QString> objectionTo(const CloudAccount& account);

} // namespace platform
