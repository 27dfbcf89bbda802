#pragma once

#include <filesystem>
#include <string>

#include "engine/core/System.h"

/// A folder for what the benchmarks of this run write, and of no other that goes on beside it.
/// Removed at the end.
class WorkFolder {
public:
    WorkFolder()
        : path((std::filesystem::temp_directory_path() /
                ("wingtally-bench-" + std::to_string(zel::system::entropy())))
                   .string()) {
        std::filesystem::create_directories(path);
    }
    ~WorkFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    const std::string path;
};
