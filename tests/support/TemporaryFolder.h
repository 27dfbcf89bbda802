#pragma once

#include <string>
#include <string_view>

#include "engine/core/String.h"

/// A fresh folder for one test, removed with all that is in it at the end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return folder; }
    /// The path of a file in it. Folders on the way are made.
    std::string file(std::string_view name) const;
    /// Writes a file, byte for byte. Returns its path.
    std::string write(std::string_view name, std::string_view content) const;
    /// A file's bytes; empty if it isn't there.
    std::string read(std::string_view name) const;

private:
    std::string folder;
};
