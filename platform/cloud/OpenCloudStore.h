#pragma once

#include "platform/cloud/CloudAccount.h"
#include "platform/cloud/CloudStore.h"

#include <chrono>
#include <memory>

namespace platform {

// How long one call of a store may take. Looking up a server's name takes as long as the system's resolver
// lets it, and a disk of another machine as long as the system waits for it; both come on top.
using Deadline = std::chrono::milliseconds;

// The deadline of the programs' own calls.
constexpr Deadline usualDeadline = std::chrono::seconds(10);

// What becomes of an account's file that is not there. Only somebody who has just named it can tell a new one
// from one whose disk is not mounted.
enum class MissingFile {
    Refused, // NetworkUnavailable
    Made     // in a folder that is there, for its owner alone
};

// Connects to the account's database and checks that its schema is one this program knows. A file that is
// empty is given its schema; that of a server is never made or changed.
//
// The store belongs to the calling thread. When its connection has broken it connects anew at the next call;
// what failed is not done again by itself. A transaction that lost against another one without having
// changed anything is, until the deadline.
//
// A server that is neither on this machine's loopback interface nor behind a Unix socket is only spoken to
// with sslMode "verify-full" and a root certificate; NotAuthenticated, without a packet sent, where the
// account has it otherwise.
//
// Errors: NetworkUnavailable for a server that cannot be reached, or a file or folder that is not there;
// ServiceUnavailable where the server has no schema, or the file is damaged or another one than we make;
// IncompatibleVersion where it is a newer program's; InvalidArguments for an account that makes no sense or
// names another program's file.
CloudResult<std::unique_ptr<CloudStore>> openCloudStore(const CloudAccount& account, Deadline deadline,
                                                        MissingFile missingFile = MissingFile::Made);

} // namespace platform
