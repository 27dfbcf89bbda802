#pragma once

#include <vector>

#include "engine/core/String.h"

/// What looking through files of the program has shown.
struct FilesLook {
    int32_t count = 0;               // of those that were read
    std::vector<zel::String> faults; // "Pictures/desk.png: it ends early"
};

/// Looks through what the screens are made of, in the working directory: no folder is empty, each
/// picture begins and ends as one, and each description has its picture. Pictures are not decoded.
FilesLook lookThroughScreens();
/// Looks through the language tables: each has the texts that the English one has.
FilesLook lookThroughLanguages();
