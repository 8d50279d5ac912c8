#pragma once

#include "Tessarine/layout/DrawContext.h"

namespace tessarine {

// Saves the state of a context, and restores it at the end of the scope.
class DrawStateScope {
public:
    explicit DrawStateScope(DrawContext& context)
        : m_context(context) {
        m_context.saveState();
    }

    DrawStateScope(const DrawStateScope&) = delete;
    DrawStateScope& operator=(const DrawStateScope&) = delete;

    ~DrawStateScope() { m_context.restoreState(); }

private:
    DrawContext& m_context;
};

} // namespace tessarine
