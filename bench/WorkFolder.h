#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "engine/core/System.h"

/// A folder for what the benchmarks of this run write; no parallel run uses it. Removed at the end.
/// It is in memory where the system has such a file system with room for a war: the time that a
/// disk's file system takes for the same work varies by half between two turns.
class WorkFolder {
public:
    WorkFolder()
        : path(
              (parent() / ("wingtally-bench-" + std::to_string(zel::system::entropy()))).string()) {
        std::filesystem::create_directories(path);
    }
    ~WorkFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const std::string path;

private:
    static std::filesystem::path parent() {
        constexpr uintmax_t Room = 4'000'000'000; // bytes
        const std::filesystem::path memory = "/dev/shm";
        std::error_code fault;
        const std::filesystem::space_info space = std::filesystem::space(memory, fault);
        return !fault && space.available >= Room ? memory : std::filesystem::temp_directory_path();
    }
};
