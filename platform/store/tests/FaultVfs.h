#pragma once

#include "platform/store/tests/UnsyncedFile.h"

#include <sqlite3.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// An SQLite VFS in front of the default one that fails writing operations, or cuts the power.
//
// While it lives it is the default VFS of the process, so that connections of Qt which open meanwhile go
// through it; they close before it ends. Writing operations are writes, truncations, syncs and deletions.
// Nothing is synced in truth; what a sync would have saved is kept in memory. One at a time, one thread.
class FaultVfs {
public:
    enum class Failing { Once, FromThenOn };
    enum class Operation { Any, Write, Truncate, Sync, Delete };

    FaultVfs();
    ~FaultVfs();
    FaultVfs(const FaultVfs&) = delete;
    FaultVfs& operator=(const FaultVfs&) = delete;

    // Fails the n-th writing operation of a sort from now (the first is 1) with a result code of SQLite. A
    // failing write leaves half of its bytes. SQLITE_IOERR_DIR_FSYNC fails a deletion after the file is gone.
    void failAt(int n, int code, Failing failing, Operation sort = Operation::Any);
    // The power goes at the n-th writing operation of a sort from now: it fails, and so does all that
    // follows.
    void cutPowerAt(int n, Operation sort = Operation::Any);

    // Writing operations work again; not after a power cut.
    void repair() { m_fault.reset(); }

    // Writing operations since the last failAt() or cutPowerAt(), of the sort that was given there.
    int operations() const { return m_operations; }

    // Whether the fault came to pass.
    bool met() const { return m_met; }

    // Cuts the power, if it is still there, and leaves the files as that may leave them: the content at
    // the last sync with any of the writes since, some of them torn between sectors; a file that was made
    // or deleted with no sync of its folder may be there or not.
    void powerCut(std::uint32_t seed);

private:
    // What a name in the folder stands for, null for no file: first as of the folder's last sync, then after
    // each change since.
    using Versions = std::vector<std::shared_ptr<UnsyncedFile>>;

    struct File;

    struct Fault {
        int at;
        int code;
        Failing failing;
        Operation sort;
        bool cutsPower;
    };

    void arm(const Fault& fault);
    int count(Operation operation);
    Versions& versions(const std::string& path);
    void syncFolder();

    static FaultVfs& of(sqlite3_vfs* vfs) { return *static_cast<FaultVfs*>(vfs->pAppData); }

    static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* memory, int flags, int* outFlags);
    static int remove(sqlite3_vfs* vfs, const char* name, int syncDir);
    static int access(sqlite3_vfs* vfs, const char* name, int flags, int* result);
    static int close(sqlite3_file* handle);
    static int write(sqlite3_file* handle, const void* bytes, int size, sqlite3_int64 at);
    static int truncate(sqlite3_file* handle, sqlite3_int64 size);
    static int sync(sqlite3_file* handle, int flags);
    template <auto Method, typename... Arguments>
    static auto forward(sqlite3_vfs* vfs, Arguments... arguments);
    template <auto Method, typename... Arguments>
    static int forwardIo(sqlite3_file* handle, Arguments... arguments);
    static const sqlite3_io_methods& ioMethods();

    sqlite3_vfs* m_real;
    sqlite3_vfs m_vfs{};
    std::map<std::string, Versions> m_folder; // by path; one folder

    std::optional<Fault> m_fault;
    int m_operations = 0;
    bool m_met = false;
    bool m_isOff = false;
};
