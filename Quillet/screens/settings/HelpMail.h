#pragma once

#include "platform/screens/sharing/Mail.h"

namespace quillet {

// What a mail for help tells of the library.
struct HelpMailFacts {
    bool foundMigrationRecord = false;
    qsizetype legacyRecordCount = 0;
    std::size_t snippets = 0;
    std::size_t tags = 0;
    std::size_t folders = 0;
    QString versionLine;
};

platform::MailMessage helpMail(const HelpMailFacts& facts);

} // namespace quillet
