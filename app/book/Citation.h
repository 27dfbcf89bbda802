#pragma once

#include <string>
#include <vector>

#include "app/book/PilotRecord.h"

/// A letter that brings a rank, or a decoration that is worn, in the language in use.
struct Citation {
    int32_t date = 0; // yyyymmdd
    zel::String title;
    zel::String pilot; // with his rank, the decorations that he had before, and his service
    zel::String text;
    std::string picture; // key of the decoration; "star" for a rank
};

/// What the pilot was given after that day, the oldest first. Leaves out his first rank and ranks
/// that merely change name.
std::vector<Citation> citationsAfter(const PilotRecord& pilot, int32_t date);
/// Which side's texts are about a pilot of that nation: 0 for the British and American ones, 1 for
/// the French, 2 for the German.
size_t serviceIndex(int32_t nation);
/// "Royal Flying Corps", on that day.
zel::String serviceName(int32_t nation, Branch branch, int32_t date);
