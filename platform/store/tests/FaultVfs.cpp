#include "platform/store/tests/FaultVfs.h"

#include <QtCore/QFile>

// SQLite gives the memory: this, and behind it the file of the real VFS.
struct FaultVfs::File : sqlite3_file {
    FaultVfs* vfs;
    std::string path; // empty for a temporary file
    bool isJournal;
    std::shared_ptr<UnsyncedFile> content;

    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }

    static File& of(sqlite3_file* handle) { return *static_cast<File*>(handle); }
};

template <auto Method, typename... Arguments>
auto FaultVfs::forward(sqlite3_vfs* vfs, Arguments... arguments) {
    sqlite3_vfs* real = of(vfs).m_real;
    return (real->*Method)(real, arguments...);
}

template <auto Method, typename... Arguments>
int FaultVfs::forwardIo(sqlite3_file* handle, Arguments... arguments) {
    auto& file = File::of(handle);
    if (file.vfs->m_isOff) return SQLITE_IOERR;
    return (file.real()->pMethods->*Method)(file.real(), arguments...);
}

// Version 1 is all that a rollback journal needs: no shared memory, no mapping.
const sqlite3_io_methods& FaultVfs::ioMethods() {
    static const sqlite3_io_methods methods = [] {
        sqlite3_io_methods own{};
        own.iVersion = 1;
        own.xClose = close;
        own.xRead = forwardIo<&sqlite3_io_methods::xRead>;
        own.xWrite = write;
        own.xTruncate = truncate;
        own.xSync = sync;
        own.xFileSize = forwardIo<&sqlite3_io_methods::xFileSize>;
        own.xLock = forwardIo<&sqlite3_io_methods::xLock>;
        own.xUnlock = forwardIo<&sqlite3_io_methods::xUnlock>;
        own.xCheckReservedLock = forwardIo<&sqlite3_io_methods::xCheckReservedLock>;
        own.xFileControl = forwardIo<&sqlite3_io_methods::xFileControl>;
        // A torn write leaves what lies beside it.
        own.xSectorSize = [](sqlite3_file*) { return 512; };
        own.xDeviceCharacteristics = [](sqlite3_file*) { return SQLITE_IOCAP_POWERSAFE_OVERWRITE; };
        return own;
    }();
    return methods;
}

FaultVfs::FaultVfs()
    : m_real(sqlite3_vfs_find(nullptr)) {
    m_vfs.iVersion = 1;
    m_vfs.szOsFile = static_cast<int>(sizeof(File)) + m_real->szOsFile;
    m_vfs.mxPathname = m_real->mxPathname;
    m_vfs.zName = "fault";
    m_vfs.pAppData = this;
    m_vfs.xOpen = open;
    m_vfs.xDelete = remove;
    m_vfs.xAccess = access;
    m_vfs.xFullPathname = forward<&sqlite3_vfs::xFullPathname>;
    m_vfs.xRandomness = forward<&sqlite3_vfs::xRandomness>;
    m_vfs.xSleep = forward<&sqlite3_vfs::xSleep>;
    m_vfs.xCurrentTime = forward<&sqlite3_vfs::xCurrentTime>;
    m_vfs.xGetLastError = forward<&sqlite3_vfs::xGetLastError>;
    sqlite3_vfs_register(&m_vfs, 1);
}

FaultVfs::~FaultVfs() {
    sqlite3_vfs_unregister(&m_vfs);
    sqlite3_vfs_register(m_real, 1);
}

void FaultVfs::failAt(int n, int code, Failing failing, Operation sort) {
    arm({n, code, failing, sort, false});
}

void FaultVfs::cutPowerAt(int n, Operation sort) {
    arm({n, SQLITE_IOERR, Failing::FromThenOn, sort, true});
}

void FaultVfs::arm(const Fault& fault) {
    m_fault = fault;
    m_operations = 0;
    m_met = false;
}

// Counts a writing operation and gives the code that it fails with, or SQLITE_OK.
int FaultVfs::count(Operation operation) {
    if (m_fault && m_fault->sort != Operation::Any && m_fault->sort != operation) return SQLITE_OK;
    ++m_operations;
    if (!m_fault || m_operations < m_fault->at) return SQLITE_OK;
    if (m_operations > m_fault->at && m_fault->failing == Failing::Once) return SQLITE_OK;
    m_met = true;
    m_isOff = m_fault->cutsPower;
    return m_fault->code;
}

void FaultVfs::powerCut(std::uint32_t seed) {
    m_isOff = true;
    std::mt19937 random(seed);
    for (const auto& [path, versions] : m_folder) {
        const auto& content = versions[random() % versions.size()];
        QFile file(QString::fromStdString(path));
        file.remove();
        if (content && file.open(QIODevice::WriteOnly)) file.write(content->afterPowerCut(random));
    }
}

FaultVfs::Versions& FaultVfs::versions(const std::string& path) {
    const auto [at, isUnknown] = m_folder.try_emplace(path);
    if (isUnknown) {
        QFile file(QString::fromStdString(path));
        const bool exists = file.open(QIODevice::ReadOnly);
        at->second.push_back(exists ? std::make_shared<UnsyncedFile>(file.readAll()) : nullptr);
    }
    return at->second;
}

void FaultVfs::syncFolder() {
    for (auto& [path, versions] : m_folder)
        versions.erase(versions.begin(), std::prev(versions.end()));
}

int FaultVfs::open(sqlite3_vfs* vfs, const char* name, sqlite3_file* memory, int flags, int* outFlags) {
    auto& self = of(vfs);
    memory->pMethods = nullptr; // SQLite closes nothing that has none
    if (self.m_isOff) return SQLITE_CANTOPEN;
    if (name) self.versions(name); // before the file is made
    auto* file = std::construct_at(reinterpret_cast<File*>(memory));
    const int code = self.m_real->xOpen(self.m_real, name, file->real(), flags, outFlags);
    if (code != SQLITE_OK) {
        std::destroy_at(file);
        return code;
    }
    file->pMethods = &ioMethods();
    file->vfs = &self;
    file->isJournal = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    file->content = std::make_shared<UnsyncedFile>();
    if (!name) return SQLITE_OK;
    file->path = name;
    auto& versions = self.versions(name);
    if (versions.back())
        file->content = versions.back();
    else
        versions.push_back(file->content);
    return SQLITE_OK;
}

int FaultVfs::remove(sqlite3_vfs* vfs, const char* name, int syncDir) {
    auto& self = of(vfs);
    if (self.m_isOff) return SQLITE_IOERR_DELETE;
    auto& versions = self.versions(name);
    const int fault = self.count(Operation::Delete);
    if (self.m_isOff) versions.push_back(nullptr);
    if (fault != SQLITE_OK && fault != SQLITE_IOERR_DIR_FSYNC) return fault;
    if (const int code = self.m_real->xDelete(self.m_real, name, 0); code != SQLITE_OK) return code;
    versions.push_back(nullptr);
    if (syncDir && fault == SQLITE_OK) self.syncFolder();
    return fault;
}

int FaultVfs::access(sqlite3_vfs* vfs, const char* name, int flags, int* result) {
    if (of(vfs).m_isOff) return SQLITE_IOERR_ACCESS;
    return forward<&sqlite3_vfs::xAccess>(vfs, name, flags, result);
}

int FaultVfs::close(sqlite3_file* handle) {
    auto& file = File::of(handle);
    const int code = file.real()->pMethods->xClose(file.real());
    std::destroy_at(&file);
    return code;
}

int FaultVfs::write(sqlite3_file* handle, const void* bytes, int size, sqlite3_int64 at) {
    auto& file = File::of(handle);
    if (file.vfs->m_isOff) return SQLITE_IOERR_WRITE;
    const int fault = file.vfs->count(Operation::Write);
    // What was under way when the power went is as uncertain as what was not synced.
    if (fault == SQLITE_OK || file.vfs->m_isOff)
        file.content->write(at, QByteArray(static_cast<const char*>(bytes), size));
    if (file.vfs->m_isOff) return fault;
    const int part = fault == SQLITE_OK ? size : size / 2;
    const int code = file.real()->pMethods->xWrite(file.real(), bytes, part, at);
    return fault == SQLITE_OK ? code : fault;
}

int FaultVfs::truncate(sqlite3_file* handle, sqlite3_int64 size) {
    auto& file = File::of(handle);
    if (file.vfs->m_isOff) return SQLITE_IOERR_TRUNCATE;
    const int fault = file.vfs->count(Operation::Truncate);
    if (fault == SQLITE_OK || file.vfs->m_isOff) file.content->truncate(size);
    return fault == SQLITE_OK ? file.real()->pMethods->xTruncate(file.real(), size) : fault;
}

// As the real one does, a journal's sync takes in the folder, so that the journal is found after a power cut.
int FaultVfs::sync(sqlite3_file* handle, int) {
    auto& file = File::of(handle);
    if (file.vfs->m_isOff) return SQLITE_IOERR_FSYNC;
    if (const int fault = file.vfs->count(Operation::Sync); fault != SQLITE_OK) return fault;
    file.content->sync();
    if (file.isJournal)
        file.vfs->syncFolder();
    else if (!file.path.empty())
        file.vfs->versions(file.path) = {file.content};
    return SQLITE_OK;
}
