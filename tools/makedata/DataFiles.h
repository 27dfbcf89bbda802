#pragma once

#include <map>
#include <string>

#include "tools/makedata/Tables.h"

/// The text files that the game reads at the start of a career, made from the tables.
namespace tables {

/// Contents by name; a name is relative to the data folder and written with "/".
using FileSet = std::map<std::string, std::string>;

/// One file for each squadron and each ace, and the name lists. A file's lines are in the order of
/// their dates and end in CR LF, since players edit such files with Windows's own editor. The same
/// tables give the same bytes.
FileSet makeFiles(const Tables& tables);

/// Writes the files that have changed, and removes every other file from the folders
/// Historical/Squadrons, Historical/Pilots and Names in the data folder. Sub-folders and everything
/// outside these three stay as they are. Stops at the first file that can't be written or removed
/// and returns the finding.
[[nodiscard]] tools::Findings writeFiles(const FileSet& files, const std::string& folder);

} // namespace tables
