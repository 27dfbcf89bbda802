#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "engine/core/SystemFiles.h"
#include "engine/core/SystemPosix.h"

namespace zel::system {

namespace {

bool writeAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            uninterrupted([&] { return write(file, bytes.data(), bytes.size()); });
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    return true;
}

/// Some file systems have no such operation: then nothing is needed, or nothing can be done.
bool syncHandle(int file) {
    return uninterrupted([&] { return fsync(file); }) == 0 || errno == EINVAL || errno == ENOTSUP ||
           errno == ENOSYS;
}

} // namespace

FileFault lastFault() {
    switch (errno) {
    case ENOSPC:
    case EDQUOT:
        return FileFault::NoSpace;
    case EACCES:
    case EPERM:
        return FileFault::NoPermission;
    case EROFS:
        return FileFault::ReadOnly;
    case ENOENT:
    case ENOTDIR:
        return FileFault::Missing;
    case EISDIR:
        return FileFault::NotAFile;
    case EBUSY:
    case EAGAIN:
    case ETXTBSY:
        return FileFault::Held;
    case EIO:
    case ENXIO:
    case ENODEV:
        return FileFault::DiskError;
    case ENAMETOOLONG:
    case ELOOP:
        return FileFault::NameTooLong;
    case EFBIG:
    case EOVERFLOW:
        return FileFault::TooLarge;
    case EMFILE:
    case ENFILE:
        return FileFault::TooManyOpen;
    case EEXIST:
        return FileFault::Exists;
    default:
        return FileFault::Other;
    }
}

String linkTarget(const String& path) {
    constexpr int32_t MostLinks = 40; // as the system follows
    std::string target = nativePath(path);
    for (int32_t count = 0; count < MostLinks; ++count) {
        char buffer[4096];
        const ssize_t length = readlink(target.c_str(), buffer, sizeof buffer);
        if (length <= 0)
            return target;
        const std::string_view next(buffer, static_cast<size_t>(length));
        target = next.front() == '/'
                     ? std::string(next)
                     : target.substr(0, target.find_last_of('/') + 1) + std::string(next);
    }
    return path;
}

bool syncFolder(const String& path) {
    const std::string folder = path.empty() ? "." : nativePath(path);
    const int file =
        uninterrupted([&] { return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (file < 0)
        return false;
    const bool isSynced = syncHandle(file);
    closeQuietly(file);
    return isSynced;
}

uint32_t processId() { return static_cast<uint32_t>(getpid()); }

bool isProcessRunning(uint32_t id) {
    return kill(static_cast<pid_t>(id), 0) == 0 || errno == EPERM;
}

bool NewFile::create(const String& path) {
    constexpr int Flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const std::string name = nativePath(path);
    handle = uninterrupted([&] { return open(name.c_str(), Flags, 0666); });
    return handle >= 0;
}

bool NewFile::copyPermissions(const String& from) {
    const int file = static_cast<int>(handle);
    struct stat status;
    struct stat own;
    if (stat(nativePath(from).c_str(), &status) != 0)
        return errno == ENOENT;
    if (fstat(file, &own) != 0)
        return false;
    // Only root may give a file away; the group may be changed to another one of the player's.
    const bool isOthers = status.st_uid != own.st_uid || status.st_gid != own.st_gid;
    if (isOthers && fchown(file, status.st_uid, status.st_gid) != 0)
        static_cast<void>(fchown(file, uid_t(-1), status.st_gid) == 0);
    // File systems without permissions accept only their fixed ones.
    return fchmod(file, status.st_mode & 0777) == 0 || errno == EPERM || errno == ENOTSUP;
}

bool NewFile::write(std::string_view bytes) { return writeAll(static_cast<int>(handle), bytes); }

bool NewFile::sync() { return syncHandle(static_cast<int>(handle)); }

bool NewFile::close() {
    const int file = static_cast<int>(std::exchange(handle, -1));
    return file < 0 || ::close(file) == 0 || errno == EINTR;
}

namespace {

#ifdef F_OFD_SETLK
constexpr int SetLock = F_OFD_SETLK; // it belongs to the open file, not to the process
#else
constexpr int SetLock = F_SETLK;
#endif

/// Locks a byte beyond the text, where on Windows it keeps nobody from reading the text. A file
/// system without locks counts as free.
bool lockFile(int file) {
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = LockedByte;
    lock.l_len = 1;
    if (fcntl(file, SetLock, &lock) == 0 || errno == ENOLCK || errno == ENOTSUP ||
        errno == ENOSYS || errno == EINVAL)
        return true;
    if (errno == EACCES)
        errno = EAGAIN;
    return false;
}

/// Whether the name still has that file: the one who had the lock before may have removed it.
bool isNamed(int file, const std::string& name) {
    struct stat byHandle;
    struct stat byName;
    return fstat(file, &byHandle) == 0 && stat(name.c_str(), &byName) == 0 &&
           byHandle.st_dev == byName.st_dev && byHandle.st_ino == byName.st_ino;
}

} // namespace

bool FileLock::take(const String& path, std::string_view text) {
    constexpr int Flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    constexpr int32_t Attempts = 100;
    const std::string native = nativePath(path);
    for (int32_t attempt = 0; attempt < Attempts; ++attempt) {
        const int file = uninterrupted([&] { return open(native.c_str(), Flags, 0666); });
        if (file < 0)
            return false;
        if (!lockFile(file)) {
            closeQuietly(file);
            return false;
        }
        if (isNamed(file, native)) {
            // Without the text it is locked all the same.
            if (ftruncate(file, 0) == 0)
                writeAll(file, text);
            handle = file;
            name = native;
            return true;
        }
        closeQuietly(file);
    }
    errno = EAGAIN;
    return false;
}

void FileLock::release() {
    if (!isHeld())
        return;
    if (isInPlace())
        unlink(name.c_str());
    close(static_cast<int>(std::exchange(handle, -1)));
}

bool FileLock::isInPlace() const {
    return isHeld() && isNamed(static_cast<int>(handle), name.c_str());
}

} // namespace zel::system
