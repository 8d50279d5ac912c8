#pragma once

#include <sqlite3.h>

// While it lives SQLite does not sleep when it waits for another connection's lock, so that a wait comes to
// its end at once. Goes over the VFS that is the default when it is made, which outlives it. Connections that
// open meanwhile close before it ends.
class SleeplessVfs {
public:
    SleeplessVfs()
        : m_real(sqlite3_vfs_find(nullptr))
        , m_vfs(*m_real) {
        m_vfs.zName = "sleepless";
        m_vfs.xSleep = [](sqlite3_vfs*, int microseconds) { return microseconds; };
        sqlite3_vfs_register(&m_vfs, 1);
    }

    ~SleeplessVfs() {
        sqlite3_vfs_unregister(&m_vfs);
        sqlite3_vfs_register(m_real, 1);
    }

    SleeplessVfs(const SleeplessVfs&) = delete;
    SleeplessVfs& operator=(const SleeplessVfs&) = delete;

private:
    sqlite3_vfs* m_real;
    sqlite3_vfs m_vfs;
};
