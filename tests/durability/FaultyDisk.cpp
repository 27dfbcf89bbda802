// Runs a program on a disk that stops, fails or keeps a list: counts the program's calls that
// change files below a folder, kills the program at the n-th of them, lets the n-th fail, or lists
// all of them with their data, so that a power cut can be simulated from the list.
//
// The calls are seen where they enter the kernel (ptrace, with a filter that stops at no others),
// because the C library's own calls, such as those of fwrite, can't be replaced by a library that
// is loaded first. For 64-bit Linux on x86. tests/durability/durability.py runs it.

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <map>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "tests/durability/FileCalls.h"
#include "tests/durability/StoppedProcess.h"

namespace {

constexpr const char* Usage =
    R"(Usage: faulty-disk --root DIR [OPTION]... -- PROGRAM [ARGUMENT]...

  --root DIR       the folder whose files count
  --no-links       the disk has no second names: each call that makes one fails with EPERM
  --reads          counts calls that read them, instead of those that change them
  --list FILE      writes a line for each call, separated by tabs: number, name, path, second
                   path, offset, length, place of the data in the next file, result, flags
  --data FILE      writes what the calls have written
  --kill N WHEN    kills the program at call N: before it, after it, or, of a write, after a part
  --fail N ERROR   lets call N fail: ENOSPC, EACCES, EIO, EINTR
  --fail-from N ERROR  lets that call and all after it fail

Exit status: the program's; 137 after a kill, 125 if it could not be run.)";

constexpr int NotRun = 125;
constexpr int Killed = 137;

struct Options {
    std::string root;
    bool countsReads = false;
    bool hasLinks = true;
    std::string list;
    std::string data;
    int64_t killAt = 0;
    std::string killWhen;
    int64_t failAt = 0;
    bool failsOn = false; // all calls from failAt on
    int error = 0;
    std::vector<char*> program;
};

int errorOf(std::string_view name) {
    for (const auto& [known, code] : {std::pair<std::string_view, int>{"ENOSPC", ENOSPC},
                                      {"EACCES", EACCES},
                                      {"EIO", EIO},
                                      {"EINTR", EINTR}})
        if (name == known)
            return code;
    return 0;
}

bool readOptions(int count, char** words, Options& options) {
    for (int i = 1; i < count; ++i) {
        const std::string_view word = words[i];
        const int left = count - i - 1;
        if (word == "--") {
            options.program.assign(words + i + 1, words + count);
            options.program.push_back(nullptr);
            break;
        }
        if (word == "--reads") {
            options.countsReads = true;
        } else if (word == "--no-links") {
            options.hasLinks = false;
        } else if (left >= 1 && (word == "--root" || word == "--list" || word == "--data")) {
            (word == "--root"   ? options.root
             : word == "--list" ? options.list
                                : options.data) = words[++i];
        } else if (left >= 2 && word == "--kill") {
            options.killAt = std::atoll(words[++i]);
            options.killWhen = words[++i];
        } else if (left >= 2 && (word == "--fail" || word == "--fail-from")) {
            options.failsOn = word == "--fail-from";
            options.failAt = std::atoll(words[++i]);
            options.error = errorOf(words[++i]);
        } else {
            return false;
        }
    }
    if (!options.root.empty())
        options.root = std::filesystem::weakly_canonical(options.root).string();
    return !options.root.empty() && options.program.size() > 1 &&
           (options.failAt == 0 || options.error != 0);
}

/// Stops at the calls of the table, and lets all others pass.
void installFilter() {
    std::vector<sock_filter> filter = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const long number : fileCallNumbers()) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<uint32_t>(number), 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0)
        std::_Exit(NotRun);
}

class Tracer {
public:
    explicit Tracer(Options options) : options(std::move(options)) {
        if (!this->options.list.empty())
            list.open(this->options.list, std::ios::trunc);
        if (!this->options.data.empty())
            data.open(this->options.data, std::ios::trunc | std::ios::binary);
    }

    /// Until the program's end. Its exit status.
    int run(pid_t first) {
        int status = 0;
        int result = NotRun;
        while (const pid_t process = waitpid(-1, &status, __WALL)) {
            if (process < 0)
                break;
            if (WIFEXITED(status) || WIFSIGNALED(status)) {
                if (process == first)
                    result = isKilled            ? Killed
                             : WIFEXITED(status) ? WEXITSTATUS(status)
                                                 : 128 + WTERMSIG(status);
                continue;
            }
            goOn(process, status);
        }
        return result;
    }

private:
    void goOn(pid_t process, int status) {
        const int signal = WSTOPSIG(status);
        if (status >> 8 == (SIGTRAP | PTRACE_EVENT_SECCOMP << 8))
            return atCall(process);
        if (signal == (SIGTRAP | 0x80)) { // the end of a call that is waited for
            atResult(process);
            ptrace(PTRACE_CONT, process, nullptr, 0);
            return;
        }
        const bool isOurs = signal == SIGTRAP || signal == SIGSTOP;
        ptrace(PTRACE_CONT, process, nullptr, isOurs ? 0 : signal);
    }

    void atCall(pid_t process) {
        StoppedProcess stopped(process);
        FileOperation operation;
        if (!describeCall(stopped, options.root, options.countsReads, data.is_open(), operation)) {
            ptrace(PTRACE_CONT, process, nullptr, 0);
            return;
        }
        ++count;
        const bool fails = options.failAt > 0 &&
                           (count == options.failAt || (options.failsOn && count > options.failAt));
        const bool kills = count == options.killAt;
        if (kills && options.killWhen == "part" && operation.call->kind == FileCallKind::Write &&
            stopped.number() != SYS_writev && operation.length > 1)
            stopped.setLength(operation.length / 2);
        const bool isRefused =
            !options.hasLinks && operation.call->name == std::string_view("link");
        if (fails || isRefused || (kills && options.killWhen == "before"))
            stopped.refuse(-(fails ? options.error : isRefused ? EPERM : EIO));
        if (kills && options.killWhen == "before")
            return kill(process);
        pending[process] = std::move(operation);
        ptrace(PTRACE_SYSCALL, process, nullptr, 0);
    }

    void atResult(pid_t process) {
        const auto found = pending.find(process);
        if (found == pending.end())
            return;
        note(found->second, StoppedProcess(process).result());
        pending.erase(found);
        if (count == options.killAt)
            kill(process);
    }

    void note(const FileOperation& operation, int64_t result) {
        if (!list.is_open())
            return;
        list << count << '\t' << operation.call->name << '\t' << operation.path << '\t'
             << operation.path2 << '\t' << operation.offset << '\t' << operation.length << '\t'
             << (data.is_open() ? int64_t{data.tellp()} : 0) << '\t' << result << '\t'
             << operation.flags << '\n';
        if (data.is_open())
            data << operation.data;
    }

    void kill(pid_t process) {
        isKilled = true;
        ::kill(process, SIGKILL);
    }

    Options options;
    std::ofstream list;
    std::ofstream data;
    std::map<pid_t, FileOperation> pending; // whose results are waited for
    int64_t count = 0;
    bool isKilled = false;
};

} // namespace

int main(int count, char** words) {
    Options options;
    if (!readOptions(count, words, options)) {
        std::fprintf(stderr, "%s\n", Usage);
        return NotRun;
    }
    const pid_t process = fork();
    if (process == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP); // until the tracer is ready
        installFilter();
        execv(options.program[0], options.program.data());
        std::fprintf(stderr, "faulty-disk: %s can't be run\n", options.program[0]);
        std::_Exit(NotRun);
    }
    int status = 0;
    if (process < 0 || waitpid(process, &status, 0) != process || !WIFSTOPPED(status))
        return NotRun;
    const long wanted = PTRACE_O_TRACESECCOMP | PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL |
                        PTRACE_O_TRACEFORK | PTRACE_O_TRACEVFORK | PTRACE_O_TRACECLONE;
    if (ptrace(PTRACE_SETOPTIONS, process, nullptr, wanted) != 0)
        return NotRun;
    Tracer tracer(std::move(options));
    ptrace(PTRACE_CONT, process, nullptr, 0);
    return tracer.run(process);
}
