#pragma once

#include <cstdint>
#include <string>
#include <vector>

class StoppedProcess;

enum class FileCallKind { Open, Read, Write, Sync, Truncate, Remove, TwoPaths, Change };

/// A system call that reads or changes files.
struct FileCall {
    long number;
    const char* name; // alike for calls that do the same
    FileCallKind kind;
    int folder;  // argument with the folder that the path is relative to, from 0; -1 for none
    int path;    // argument with the path, or with an open file's number if `folder` is FileNumber
    int folder2; // the same for a second path, whose argument is -1 if there is none
    int path2;
};
constexpr int FileNumber = -2;

/// The numbers of all calls that count.
std::vector<long> fileCallNumbers();

/// One call of a program.
struct FileOperation {
    const FileCall* call = nullptr;
    std::string path;
    std::string path2;
    int64_t offset = 0;  // of a write
    uint64_t length = 0; // of a write, or the new one of a file
    std::string data;    // of a write
    uint64_t flags = 0;  // of an open
};

/// What the process is about to do. False for a call that doesn't count: one that only reads (with
/// `countsReads`, one that changes something), and one on files outside the folder `root`. The data
/// of writes are copied if `copiesData`.
bool describeCall(const StoppedProcess& stopped, const std::string& root, bool countsReads,
                  bool copiesData, FileOperation& operation);
