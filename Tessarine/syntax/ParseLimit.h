#pragma once

#include "Tessarine/base/Operation.h"

#include <chrono>
#include <optional>

namespace tessarine {

// When a parse or a query is to be given up before its end: when the operation that it is part of is
// cancelled, or a moment is over. It borrows the operation. Thread: that of the work.
class ParseLimit {
public:
    ParseLimit() = default;

    explicit ParseLimit(const Operation& operation)
        : m_operation(&operation) {}

    explicit ParseLimit(std::chrono::steady_clock::duration budget)
        : m_end(std::chrono::steady_clock::now() + budget) {}

    bool canBeReached() const { return m_operation || m_end; }

    bool isReached() const {
        return (m_operation && m_operation->isCancelled()) ||
               (m_end && std::chrono::steady_clock::now() >= *m_end);
    }

private:
    const Operation* m_operation = nullptr;
    std::optional<std::chrono::steady_clock::time_point> m_end;
};

} // namespace tessarine
