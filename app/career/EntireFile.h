#pragma once

#include <vector>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// A whole text file in memory as a list of lines, without their ends. Empty lines don't appear;
/// blanks at a line's ends stay.
class EntireFile {
public:
    EntireFile() = default;
    explicit EntireFile(const zel::String& name) { static_cast<void>(loadFile(name)); }
    EntireFile(const EntireFile&) = default;
    EntireFile(EntireFile&&) noexcept = default;
    EntireFile& operator=(const EntireFile&) = default;
    EntireFile& operator=(EntireFile&&) noexcept = default;
    virtual ~EntireFile() = default;

    /// Replaces the lines. On error: false and no lines.
    [[nodiscard]] bool loadFile(const zel::String& name);
    /// Adds the file's lines after those held. On error: false, and the lines stay as they were.
    [[nodiscard]] bool appendFile(const zel::String& name);
    /// Replaces the file by the lines, each with carriage return and line feed, as writeFileWhole
    /// (WholeFile.h) does. False if that failed.
    [[nodiscard]] bool saveFile(const zel::String& name) const;
    /// The same with the reason of a failure.
    [[nodiscard]] zel::FileFault writeFile(const zel::String& name) const;

    int32_t lineCount() const { return static_cast<int32_t>(lines.size()); }
    /// REQUIRES: 0 <= index < lineCount().
    zel::String& line(int32_t index) { return lines[index]; }
    const zel::String& line(int32_t index) const { return lines[index]; }

    std::vector<zel::String> lines;
    zel::String fileName; // as given to the last loadFile
};
