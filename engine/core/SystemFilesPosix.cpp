#include <algorithm>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/SystemPosix.h"

namespace zel::system {

std::string withSlashes(const String& path) {
    std::string result(path.view());
    for (char& character : result)
        if (character == '\\')
            character = '/';
    return result;
}

namespace {

bool exists(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0;
}

/// The entry of `folder` that differs from `name` only in case, the first by its bytes; `name`
/// itself if there is none.
std::string foundNoCase(const std::string& folder, const std::string& name) {
    std::string found;
    DIR* directory = opendir(folder.empty() ? "." : folder.c_str());
    if (directory == nullptr)
        return name;
    while (const dirent* entry = readdir(directory))
        if (equalsNoCase(entry->d_name, name) && (found.empty() || entry->d_name < found))
            found = entry->d_name;
    closedir(directory);
    return found.empty() ? name : found;
}

} // namespace

std::string nativePath(const String& path) {
    std::string wanted = withSlashes(path);
    if (exists(wanted))
        return wanted;
    std::string result = wanted.rfind('/', 0) == 0 ? "/" : "";
    for (size_t start = 0; start < wanted.size();) {
        const size_t end = std::min(wanted.find('/', start), wanted.size());
        const std::string name = wanted.substr(start, end - start);
        start = end + 1;
        if (name.empty())
            continue;
        result += exists(result + name) ? name : foundNoCase(result, name);
        if (start < wanted.size())
            result += '/';
    }
    return result;
}

void closeQuietly(int file) {
    const KeptReason reason;
    close(file);
}

void unlinkQuietly(const std::string& path) {
    const KeptReason reason;
    unlink(path.c_str());
}

namespace {

/// Whether a second name could not be made only because the file system has none, or none for a
/// file of that owner or on another disk.
bool lacksLinks(int error) {
    return error == EPERM || error == ENOTSUP || error == EOPNOTSUPP || error == ENOSYS ||
           error == EXDEV || error == EMLINK || error == EINVAL;
}

bool copyFile(const std::string& from, const std::string& to) {
    const int source = uninterrupted([&] { return open(from.c_str(), O_RDONLY | O_CLOEXEC); });
    if (source < 0)
        return false;
    NewFile copy;
    bool isCopied = copy.create(to) && copy.copyPermissions(from);
    std::string block(1 << 20, '\0');
    for (ssize_t count = 1; isCopied && count > 0;) {
        count = uninterrupted([&] { return read(source, block.data(), block.size()); });
        isCopied = count >= 0 && copy.write({block.data(), static_cast<size_t>(count)});
    }
    closeQuietly(source);
    return isCopied && copy.sync() && copy.close();
}

/// Gives the file a second name `kept` in place of what has that name. A file system without links
/// gets a copy, or the file itself is renamed.
bool keepAs(const std::string& present, const std::string& kept) {
    const std::string draft = kept + "." + std::to_string(getpid()) + ".new";
    unlinkQuietly(draft);
    if (link(present.c_str(), draft.c_str()) != 0) {
        if (!lacksLinks(errno))
            return false;
        if (!copyFile(present, draft)) {
            unlinkQuietly(draft);
            return std::rename(present.c_str(), kept.c_str()) == 0;
        }
    }
    if (std::rename(draft.c_str(), kept.c_str()) != 0) {
        unlinkQuietly(draft);
        return false;
    }
    unlinkQuietly(draft); // two names of one file are not renamed over each other
    return true;
}

} // namespace

bool changeDirectory(const String& path) { return chdir(nativePath(path).c_str()) == 0; }

String absolutePath(const String& path) {
    const std::string turned = nativePath(path);
    return !turned.empty() && turned.front() == '/' ? String(turned)
                                                    : currentDirectory() + "/" + turned;
}

FILE* openFile(const String& path, const char* mode) {
    const bool reads = mode[0] == 'r';
    // Non-blocking, so that a pipe under the name of a data file can't stop the program here.
    const bool updates = std::string_view(mode).find('+') != std::string_view::npos;
    const int access = updates ? O_RDWR : reads ? O_RDONLY : O_WRONLY;
    const int creation = mode[0] == 'w'   ? O_CREAT | O_TRUNC
                         : mode[0] == 'a' ? O_CREAT | O_APPEND
                                          : 0;
    const int flags = access | creation | O_NONBLOCK | O_CLOEXEC;
    const std::string written = withSlashes(path);
    const auto openAs = [&](const std::string& name) {
        return uninterrupted([&] { return open(name.c_str(), flags, 0666); });
    };
    int file = reads ? openAs(written) : -1;
    if (file < 0)
        file = openAs(nativePath(path));
    if (file < 0)
        return nullptr;
    struct stat status;
    const bool isKnown = fstat(file, &status) == 0;
    if (isKnown && S_ISREG(status.st_mode))
        return fdopen(file, mode);
    if (isKnown)
        errno = EISDIR;
    closeQuietly(file);
    return nullptr;
}

FileStatus fileStatus(const String& path) {
    struct stat status;
    if (stat(nativePath(path).c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return {true, status.st_size,
            int64_t(status.st_mtim.tv_sec) * 1000000000 + status.st_mtim.tv_nsec};
}

bool isDirectory(const String& path) {
    struct stat status;
    return stat(nativePath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool listDirectory(const String& path, std::vector<DirectoryEntry>& entries) {
    entries.clear();
    const std::string folder = path.empty() ? "." : nativePath(path);
    DIR* directory = opendir(folder.c_str());
    while (directory == nullptr && errno == EINTR)
        directory = opendir(folder.c_str());
    if (directory == nullptr)
        return false;
    const auto next = [&] {
        errno = 0; // the end isn't an error
        return readdir(directory);
    };
    for (const dirent* entry = next(); entry != nullptr; entry = next()) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        bool isFolder = entry->d_type == DT_DIR;
        if (entry->d_type == DT_UNKNOWN || entry->d_type == DT_LNK)
            isFolder = isDirectory(String(folder) + "/" + name);
        entries.push_back({name, isFolder});
    }
    const KeptReason reason;
    const bool isWhole = errno == 0;
    closedir(directory);
    return isWhole;
}

bool createDirectory(const String& path) {
    const std::string folder = nativePath(path);
    if (mkdir(folder.c_str(), 0777) != 0)
        return isDirectory(path);
    syncFolder(String(folder.substr(0, folder.find_last_of('/') + 1)));
    return true;
}

bool replaceFile(const String& from, const String& to) {
    return std::rename(nativePath(from).c_str(), nativePath(to).c_str()) == 0;
}

bool replaceFileKeeping(const String& from, const String& to, const String& backup) {
    const std::string present = nativePath(to);
    struct stat status;
    if (stat(present.c_str(), &status) != 0)
        return errno == ENOENT && replaceFile(from, to);
    if (!S_ISREG(status.st_mode)) { // a folder is never moved
        errno = EISDIR;
        return false;
    }
    const std::string kept = nativePath(backup);
    if (!keepAs(present, kept))
        return false;
    if (replaceFile(from, to))
        return true;
    const KeptReason reason;
    if (!exists(present))
        std::rename(kept.c_str(), present.c_str());
    return false;
}

bool keepFileAs(const String& file, const String& name) {
    const std::string present = nativePath(file);
    const std::string kept = nativePath(name);
    return link(present.c_str(), kept.c_str()) == 0 || keepAs(present, kept);
}

bool removeFolder(const String& path) { return rmdir(nativePath(path).c_str()) == 0; }

bool renameFolder(const String& from, const String& to) {
    return std::rename(nativePath(from).c_str(), nativePath(to).c_str()) == 0;
}

bool removeFile(const String& path) { return unlink(nativePath(path).c_str()) == 0; }

} // namespace zel::system
