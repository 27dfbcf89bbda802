#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/common/Finding.h"

namespace tables {

/// A text file as lines. Faults are added to the given findings, which must outlive it.
class LineSource {
public:
    /// A file that can't be read is a finding and has no lines.
    LineSource(const std::string& folder, const std::string& file, tools::Findings& findings);

    /// Adds a finding for lines[index].
    void report(size_t index, const std::string& message, const std::string& suggestion = "");

    std::string file;               // relative to the folder
    std::vector<std::string> lines; // without their ends

private:
    std::string path;
    tools::Findings& findings;
};

/// A file of comma-separated values. Rows without as many fields as the header are findings and
/// left out.
class CsvTable : public LineSource {
public:
    struct CsvRow {
        size_t line; // index into lines
        std::vector<std::string> fields;
    };

    /// header: the expected first line of the file. A different one is a finding, and the table has
    /// no rows.
    CsvTable(const std::string& folder, const std::string& file, std::string_view header,
             tools::Findings& findings);

    std::vector<CsvRow> rows;

private:
    void addRow(size_t index, size_t fieldCount);
};

} // namespace tables
