#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/common/Finding.h"

namespace standin {

/// Sets the finding. Always false, for `return refuse(...)`.
bool refuse(tools::Finding& finding, int32_t line, std::string_view reason);

/// A line `Key = value;`. The value is as written, with its quotes, without the semicolon.
struct MissionEntry {
    std::string key;
    std::string value;
    int32_t line = 0; // from 1
};

/// A line such as `500 : 0 : 0;` or `264998, 38650.7;`.
struct MissionRow {
    std::vector<std::string> values; // without the blanks around them
    char separator = ':';            // or ','
    int32_t line = 0;                // from 1
};

/// A name, and between its braces entries, rows and further blocks.
struct MissionBlock {
    std::string name;
    int32_t line = 0; // of the name
    std::vector<MissionEntry> entries;
    std::vector<MissionRow> rows;
    std::vector<MissionBlock> children;

    /// Null if the block has no such key; case-sensitive.
    const MissionEntry* find(std::string_view key) const;
    const MissionBlock* child(std::string_view childName) const;
};

/// Reads the simulator's grammar and nothing more: what blocks and keys mean is the job of
/// MissionReader.
///
/// The first line is `# Mission File Version = ...;`, the last `# end of file`; between them are
/// blocks and empty lines. Lines hold printable ASCII only and end in CR LF, which the last one may
/// lack. On error: false with the first finding, and `blocks` must not be used.
[[nodiscard]] bool parseMissionText(std::string_view text, std::vector<MissionBlock>& blocks,
                                    tools::Finding& finding);

/// The text between the quotes; false if the value isn't a quoted text.
bool unquoted(std::string_view value, std::string& text);

} // namespace standin
