#pragma once

#include <map>
#include <string>

#include "tools/makedata/Tables.h"

/// The tables turned into the text files that the program reads at the start of a career.
namespace tables {

/// Contents by name; a name is relative to the data folder and written with "/".
using FileSet = std::map<std::string, std::string>;

/// One file for each squadron and each ace, and the name lists. A file's lines are in the order of
/// their dates and end in CR LF, since players mend such files with what Windows has. The same
/// tables give the same bytes.
FileSet makeFiles(const Tables& tables);

/// Writes what has changed, and removes what else lies in the folders Historical/Squadrons,
/// Historical/Pilots and Names below the data folder. Sub-folders and everything outside these
/// three stay untouched. On error: false and the fault.
[[nodiscard]] bool writeFiles(const FileSet& files, const std::string& folder, std::string& fault);

} // namespace tables
