#include "tests/durability/StoppedProcess.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sys/ptrace.h>
#include <sys/uio.h>
#include <unistd.h>

StoppedProcess::StoppedProcess(pid_t process) : process(process) {
    ptrace(PTRACE_GETREGS, process, nullptr, &registers);
}

uint64_t StoppedProcess::argument(int place) const {
    const uint64_t arguments[] = {registers.rdi, registers.rsi, registers.rdx,
                                  registers.r10, registers.r8,  registers.r9};
    return arguments[place];
}

std::string StoppedProcess::memory(uint64_t place, size_t size) const {
    std::string bytes(size, '\0');
    iovec to{bytes.data(), size};
    iovec from{reinterpret_cast<void*>(place), size};
    const ssize_t count = process_vm_readv(process, &to, 1, &from, 1, 0);
    bytes.resize(count > 0 ? static_cast<size_t>(count) : 0);
    return bytes;
}

std::string StoppedProcess::text(uint64_t place) const {
    constexpr size_t PieceSize = 256; // which crosses no page boundary
    std::string text;
    while (text.size() < PATH_MAX) {
        const uint64_t next = place + text.size();
        const std::string piece = memory(next, PieceSize - next % PieceSize);
        const size_t end = piece.find('\0');
        text += piece.substr(0, end);
        if (piece.empty() || end != piece.npos)
            break;
    }
    return text;
}

std::string StoppedProcess::linkOf(const std::string& name) const {
    std::array<char, PATH_MAX> buffer{};
    const std::string link = "/proc/" + std::to_string(process) + "/" + name;
    const ssize_t length = readlink(link.c_str(), buffer.data(), buffer.size());
    return std::string(buffer.data(), length > 0 ? static_cast<size_t>(length) : 0);
}

std::string StoppedProcess::openFile(uint64_t number) const {
    return linkOf("fd/" + std::to_string(static_cast<int>(number)));
}

std::string StoppedProcess::path(int folder, int place) const {
    const bool isCurrent = folder < 0 || static_cast<int>(argument(folder)) == AT_FDCWD;
    const std::filesystem::path base = isCurrent ? linkOf("cwd") : openFile(argument(folder));
    const std::filesystem::path whole = (base / text(argument(place))).lexically_normal();
    return (whole.has_filename() ? whole : whole.parent_path()).string();
}

int64_t StoppedProcess::position(uint64_t number) const {
    std::ifstream file("/proc/" + std::to_string(process) + "/fdinfo/" +
                       std::to_string(static_cast<int>(number)));
    int64_t place = 0;
    unsigned flags = 0;
    for (std::string key; file >> key;) {
        if (key == "pos:")
            file >> place;
        else if (key == "flags:")
            file >> std::oct >> flags >> std::dec;
    }
    std::error_code error;
    return (flags & O_APPEND) != 0
               ? static_cast<int64_t>(std::filesystem::file_size(openFile(number), error))
               : place;
}

void StoppedProcess::writeRegisters() { ptrace(PTRACE_SETREGS, process, nullptr, &registers); }

void StoppedProcess::setLength(uint64_t length) {
    registers.rdx = length;
    writeRegisters();
}

void StoppedProcess::refuse(int64_t result) {
    registers.rax = static_cast<uint64_t>(result);
    registers.orig_rax = UINT64_MAX;
    writeRegisters();
}
