#pragma once

#include <sqlite3.h>

// While it lives SQLite has the smallest heap and spills its page cache, so that pages reach a file ahead of
// their transaction's commit.
class SpillingCache {
public:
    SpillingCache()
        : m_before(sqlite3_soft_heap_limit64(1)) {}

    ~SpillingCache() { sqlite3_soft_heap_limit64(m_before); }

    SpillingCache(const SpillingCache&) = delete;
    SpillingCache& operator=(const SpillingCache&) = delete;

private:
    sqlite3_int64 m_before; // bytes
};
