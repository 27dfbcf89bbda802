#pragma once

#include <cstdint>

class Database;

/// The years that a save file can be of: from a career's first day to a little past the war.
constexpr int32_t FirstSaveYear = 1915;
constexpr int32_t LastSaveYear = 1919;

/// What was looked at while a save file's records were read.
struct Soundness {
    bool pilots = false; // each names a squadron, and a file or none
    bool lines = true;   // the data files name lines that are there, or none
};

/// Puts right what breaks the invariants of a career that came from a file, with a line in the log
/// for each kind of fault. The number of faults; -1 if there is nothing that a career could go on
/// from. What is sound isn't looked at again.
int32_t repairCareer(Database& career, const Soundness& soundness);
