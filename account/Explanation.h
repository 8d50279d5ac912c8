#pragma once

#include "platform/cloud/CKError.h"
#include "platform/cloud/CloudAccount.h"

namespace account {

// What went wrong with a connection, and what one can do about it, in sentences for the user.
QString explanationOf(const platform::CKError& error);

// Where the account is, in one line: "library on db.example.org, as ann".
QString nameOf(const platform::CloudAccount& account);

} // namespace account
