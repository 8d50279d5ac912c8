#pragma once

#include "Tessarine/base/TextRange.h"

#include <string_view>

namespace tessarine {

// Who edits for an IndentController. Main thread.
class IndentControllerDelegate {
public:
    IndentControllerDelegate() = default;
    IndentControllerDelegate(const IndentControllerDelegate&) = delete;
    IndentControllerDelegate& operator=(const IndentControllerDelegate&) = delete;
    virtual ~IndentControllerDelegate() = default;

    // An undoable replacement, called typing.
    virtual void indentControllerReplaceText(TextRange range, std::u16string_view text) = 0;

    // Tells whoever is to know of selections.
    virtual void indentControllerSelect(TextRange range) = 0;
};

} // namespace tessarine
