#include "tests/faults/support/faulty_vfs.h"

#include <sqlite3.h>

namespace prot::faults {

namespace {

FaultPlan* plan = nullptr;
sqlite3_vfs vfs;

sqlite3_vfs* system_vfs() { return static_cast<sqlite3_vfs*>(vfs.pAppData); }

/// Followed in memory by the system's own file.
struct File {
    sqlite3_file base;
};
sqlite3_file* inner(sqlite3_file* file) {
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<File*>(file) + 1);
}
const sqlite3_io_methods& methods_of(sqlite3_file* file) { return *inner(file)->pMethods; }

int close(sqlite3_file* file) { return methods_of(file).xClose(inner(file)); }
int read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
    return plan->fails() ? SQLITE_IOERR_READ : methods_of(file).xRead(inner(file), bytes, count, offset);
}
int write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
    if (!plan->fails()) return methods_of(file).xWrite(inner(file), bytes, count, offset);
    methods_of(file).xWrite(inner(file), bytes, count / 2, offset);
    return SQLITE_IOERR_WRITE;
}
int truncate(sqlite3_file* file, sqlite3_int64 size) {
    return plan->fails() ? SQLITE_IOERR_TRUNCATE : methods_of(file).xTruncate(inner(file), size);
}
int sync(sqlite3_file* file, int flags) {
    return plan->fails() ? SQLITE_IOERR_FSYNC : methods_of(file).xSync(inner(file), flags);
}
int file_size(sqlite3_file* file, sqlite3_int64* size) {
    return plan->fails() ? SQLITE_IOERR_FSTAT : methods_of(file).xFileSize(inner(file), size);
}
int lock(sqlite3_file* file, int level) {
    return plan->fails() ? SQLITE_IOERR_LOCK : methods_of(file).xLock(inner(file), level);
}
int unlock(sqlite3_file* file, int level) { return methods_of(file).xUnlock(inner(file), level); }
int check_reserved_lock(sqlite3_file* file, int* result) {
    return methods_of(file).xCheckReservedLock(inner(file), result);
}
int file_control(sqlite3_file* file, int operation, void* argument) {
    return methods_of(file).xFileControl(inner(file), operation, argument);
}
int sector_size(sqlite3_file* file) { return methods_of(file).xSectorSize(inner(file)); }
int characteristics(sqlite3_file* file) { return methods_of(file).xDeviceCharacteristics(inner(file)); }

// Version 1: no shared memory, no memory mapping, so that everything passes here.
constexpr sqlite3_io_methods methods = {
    1,
    close,
    read,
    write,
    truncate,
    sync,
    file_size,
    lock,
    unlock,
    check_reserved_lock,
    file_control,
    sector_size,
    characteristics,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    nullptr,
};

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out_flags) {
    file->pMethods = nullptr;
    if (plan->fails()) return SQLITE_CANTOPEN;
    const int code = system_vfs()->xOpen(system_vfs(), name, inner(file), flags, out_flags);
    if (inner(file)->pMethods != nullptr) file->pMethods = &methods;
    return code;
}
int remove(sqlite3_vfs*, const char* name, int sync_folder) {
    return plan->fails() ? SQLITE_IOERR_DELETE : system_vfs()->xDelete(system_vfs(), name, sync_folder);
}
int access(sqlite3_vfs*, const char* name, int flags, int* result) {
    return plan->fails() ? SQLITE_IOERR_ACCESS : system_vfs()->xAccess(system_vfs(), name, flags, result);
}

}  // namespace

FaultyVfs::FaultyVfs(FaultPlan& faults) {
    plan = &faults;
    sqlite3_vfs* const system = sqlite3_vfs_find("unix");
    vfs = *system;  // what is not about files stays the system's
    vfs.iVersion = 1;
    vfs.szOsFile = static_cast<int>(sizeof(File)) + system->szOsFile;
    vfs.zName = "with faults";
    vfs.pAppData = system;
    vfs.xOpen = open;
    vfs.xDelete = remove;
    vfs.xAccess = access;
    sqlite3_vfs_register(&vfs, 1);
}

FaultyVfs::~FaultyVfs() {
    sqlite3_vfs_unregister(&vfs);
    sqlite3_vfs_register(sqlite3_vfs_find("unix"), 1);
}

}  // namespace prot::faults
