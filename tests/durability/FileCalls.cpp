#include "tests/durability/FileCalls.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/uio.h>

#include "tests/durability/StoppedProcess.h"

namespace {

// clang-format off
constexpr FileCall Calls[] = {
    {SYS_open, "open", FileCallKind::Open, -1, 0, -1, -1},
    {SYS_openat, "open", FileCallKind::Open, 0, 1, -1, -1},
    {SYS_creat, "open", FileCallKind::Open, -1, 0, -1, -1},
    {SYS_read, "read", FileCallKind::Read, FileNumber, 0, -1, -1},
    {SYS_pread64, "read", FileCallKind::Read, FileNumber, 0, -1, -1},
    {SYS_readv, "read", FileCallKind::Read, FileNumber, 0, -1, -1},
    {SYS_write, "write", FileCallKind::Write, FileNumber, 0, -1, -1},
    {SYS_pwrite64, "write", FileCallKind::Write, FileNumber, 0, -1, -1},
    {SYS_writev, "write", FileCallKind::Write, FileNumber, 0, -1, -1},
    {SYS_fsync, "sync", FileCallKind::Sync, FileNumber, 0, -1, -1},
    {SYS_fdatasync, "sync", FileCallKind::Sync, FileNumber, 0, -1, -1},
    {SYS_ftruncate, "truncate", FileCallKind::Truncate, FileNumber, 0, -1, -1},
    {SYS_truncate, "truncate", FileCallKind::Truncate, -1, 0, -1, -1},
    {SYS_fallocate, "allocate", FileCallKind::Change, FileNumber, 0, -1, -1},
    {SYS_unlink, "unlink", FileCallKind::Remove, -1, 0, -1, -1},
    {SYS_unlinkat, "unlink", FileCallKind::Remove, 0, 1, -1, -1},
    {SYS_rmdir, "rmdir", FileCallKind::Remove, -1, 0, -1, -1},
    {SYS_mkdir, "mkdir", FileCallKind::Change, -1, 0, -1, -1},
    {SYS_mkdirat, "mkdir", FileCallKind::Change, 0, 1, -1, -1},
    {SYS_chmod, "chmod", FileCallKind::Change, -1, 0, -1, -1},
    {SYS_fchmod, "chmod", FileCallKind::Change, FileNumber, 0, -1, -1},
    {SYS_fchmodat, "chmod", FileCallKind::Change, 0, 1, -1, -1},
    {SYS_rename, "rename", FileCallKind::TwoPaths, -1, 0, -1, 1},
    {SYS_renameat, "rename", FileCallKind::TwoPaths, 0, 1, 2, 3},
    {SYS_renameat2, "rename", FileCallKind::TwoPaths, 0, 1, 2, 3},
    {SYS_link, "link", FileCallKind::TwoPaths, -1, 0, -1, 1},
    {SYS_linkat, "link", FileCallKind::TwoPaths, 0, 1, 2, 3},
};
// clang-format on

const FileCall* callOf(long number) {
    for (const FileCall& call : Calls)
        if (call.number == number)
            return &call;
    return nullptr;
}

uint64_t openFlags(const StoppedProcess& stopped) {
    return stopped.number() == SYS_creat    ? O_CREAT | O_TRUNC | O_WRONLY
           : stopped.number() == SYS_openat ? stopped.argument(2)
                                            : stopped.argument(1);
}

std::string writtenData(const StoppedProcess& stopped) {
    if (stopped.number() != SYS_writev)
        return stopped.memory(stopped.argument(1), stopped.argument(2));
    std::string data;
    for (uint64_t i = 0; i < stopped.argument(2); ++i) {
        iovec part{};
        const std::string bytes =
            stopped.memory(stopped.argument(1) + i * sizeof part, sizeof part);
        std::memcpy(&part, bytes.data(), std::min(bytes.size(), sizeof part));
        data += stopped.memory(reinterpret_cast<uint64_t>(part.iov_base), part.iov_len);
    }
    return data;
}

void describeWrite(const StoppedProcess& stopped, bool copiesData, FileOperation& operation) {
    operation.offset = stopped.number() == SYS_pwrite64 ? static_cast<int64_t>(stopped.argument(3))
                                                        : stopped.position(stopped.argument(0));
    operation.length = stopped.argument(2);
    if (copiesData || stopped.number() == SYS_writev)
        operation.data = writtenData(stopped);
    if (stopped.number() == SYS_writev)
        operation.length = operation.data.size();
}

bool isBelow(const std::string& path, const std::string& root) {
    return path.compare(0, root.size(), root) == 0 &&
           (path.size() == root.size() || path[root.size()] == '/');
}

} // namespace

std::vector<long> fileCallNumbers() {
    std::vector<long> numbers;
    for (const FileCall& call : Calls)
        numbers.push_back(call.number);
    return numbers;
}

bool describeCall(const StoppedProcess& stopped, const std::string& root, bool countsReads,
                  bool copiesData, FileOperation& operation) {
    operation.call = callOf(stopped.number());
    if (operation.call == nullptr)
        return false;
    const FileCall& call = *operation.call;
    bool reads = call.kind == FileCallKind::Read;
    if (call.kind == FileCallKind::Open) {
        operation.flags = openFlags(stopped);
        reads = (operation.flags & (O_CREAT | O_TRUNC)) == 0;
    }
    if (reads != countsReads)
        return false;
    operation.path = call.folder == FileNumber ? stopped.openFile(stopped.argument(call.path))
                                               : stopped.path(call.folder, call.path);
    if (call.path2 >= 0)
        operation.path2 = stopped.path(call.folder2, call.path2);
    if (!isBelow(operation.path, root) && !isBelow(operation.path2, root))
        return false;
    if (call.kind == FileCallKind::Truncate)
        operation.length = stopped.argument(1);
    if (call.kind == FileCallKind::Write)
        describeWrite(stopped, copiesData, operation);
    return true;
}
