#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "engine/core/Log.h"
#include "engine/core/System.h"

/// Called with every input; returns 0. It ends the process if the reader breaks its contract.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

/// Ends the process: the reader returned what it must never return.
inline void require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "not kept: %s\n", what);
    std::abort();
}

/// A folder of this process for readers that need a file, removed at the end.
class FuzzFolder {
public:
    FuzzFolder()
        : path((std::filesystem::temp_directory_path() /
                ("wingtally-fuzz-" + std::to_string(zel::system::entropy())))
                   .string()) {
        std::filesystem::create_directories(path);
        zel::disableLogging();
        zel::setConsoleShown(false);
    }
    ~FuzzFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    FuzzFolder(const FuzzFolder&) = delete;
    FuzzFolder& operator=(const FuzzFolder&) = delete;

    std::string file(const char* name) const { return path + "/" + name; }
    /// Writes the input as that file. Returns its path.
    std::string write(const char* name, const uint8_t* data, size_t size) const {
        std::FILE* stream = std::fopen(file(name).c_str(), "wb");
        require(stream != nullptr && std::fwrite(data, 1, size, stream) == size &&
                    std::fclose(stream) == 0,
                "the input can be written to a file");
        return file(name);
    }

    const std::string path;
};

inline std::string_view asText(const uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}
