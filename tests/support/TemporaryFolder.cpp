#include "tests/support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <random>

#include "tests/support/Texts.h"

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
    std::random_device entropy;
    do
        folder = (fs::temp_directory_path() / ("wingtally-" + std::to_string(entropy()))).string();
    while (!fs::create_directories(folder));
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

std::string TemporaryFolder::file(std::string_view name) const {
    const std::string path = folder + "/" + std::string(name);
    fs::create_directories(fs::path(path).parent_path());
    return path;
}

std::string TemporaryFolder::write(std::string_view name, std::string_view content) const {
    const std::string path = file(name);
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

std::string TemporaryFolder::read(std::string_view name) const { return fileText(file(name)); }
