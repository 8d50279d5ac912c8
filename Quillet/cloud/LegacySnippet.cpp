#include "Quillet/cloud/LegacySnippet.h"

namespace quillet {

// A snippet without a title or a text could not be saved, and what a record leaves out must not come to that.
std::shared_ptr<Snippet> legacySnippet(const platform::CKRecord& record) {
    auto snippet = std::make_shared<Snippet>();
    snippet->setTitle(QStringLiteral(""));
    snippet->setCode(QStringLiteral(""));
    snippet->update(record);
    return snippet;
}

} // namespace quillet
