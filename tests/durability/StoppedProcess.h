#pragma once

#include <cstdint>
#include <string>
#include <sys/types.h>
#include <sys/user.h>

/// A process that is stopped where a system call begins or ends: the call, and what it is about.
class StoppedProcess {
public:
    explicit StoppedProcess(pid_t process);

    long number() const { return static_cast<long>(registers.orig_rax); }
    int64_t result() const { return static_cast<int64_t>(registers.rax); }
    /// From 0 to 5.
    uint64_t argument(int place) const;

    /// Shorter than asked for if the process has no such memory.
    std::string memory(uint64_t place, size_t size) const;
    /// The path of an open file; of a removed one with " (deleted)" after it.
    std::string openFile(uint64_t number) const;
    /// An argument that is a path, from the root. folder: the argument with the folder that it is
    /// relative to, or -1.
    std::string path(int folder, int place) const;
    /// Where the next write to that file goes.
    int64_t position(uint64_t number) const;

    /// Changes the third argument.
    void setLength(uint64_t length);
    /// The call isn't made, and gives that result.
    void refuse(int64_t result);

private:
    std::string text(uint64_t place) const;
    std::string linkOf(const std::string& name) const;
    void writeRegisters();

    pid_t process;
    user_regs_struct registers{};
};
