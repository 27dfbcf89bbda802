#pragma once

#include <vector>

#include "engine/core/String.h"

/// The result of checking the program's files.
struct FilesLook {
    int32_t count = 0;               // of those that were read
    std::vector<zel::String> faults; // "Pictures/desk.png: it ends early"
};

/// Checks the files of the screens in the working directory: no folder is empty, each picture
/// begins and ends as one, and each description has its picture. Pictures are not decoded.
FilesLook lookThroughScreens();
/// Checks the language tables: each has the texts that the English one has.
FilesLook lookThroughLanguages();
