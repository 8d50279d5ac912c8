#pragma once

#include "Quillet/core/Snippet.h"
#include "platform/cloud/CKRecord.h"

#include <memory>

namespace quillet {

// What a record of the older layout tells, as a snippet in no context. Any thread.
std::shared_ptr<Snippet> legacySnippet(const platform::CKRecord& record);

} // namespace quillet
