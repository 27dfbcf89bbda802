#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "app/career/CareerRepair.h"
#include "app/career/SaveCheck.h"

class Calendar;
class Database;

// The bytes of a save file (docs/formats.md shows them).

constexpr int32_t SaveVersion = 2;
constexpr size_t CareerNumberOffset = 32; // of the career's number, in bytes

/// What was found while the bytes were taken apart.
struct SaveReading {
    SaveFault fault = SaveFault::None; // NoSave, OtherVersion or none
    int32_t version = 0;               // as in the file
    Soundness soundness;
    bool endedEarly = false; // somewhere after the pilots
    int32_t surplus = 0;     // bytes after the end
    int64_t missing = 0;     // records that the file announces but lacks
    int64_t blank = 0;       // records without their name or text, which no sound save has
    bool hasHistory = false; // it doesn't end before the last of the data files
    bool hasPlayer = false;  // his record and his squadron's are there and not blank
    bool isPlayerBlank = false;
};

/// Whether a save may have that date: from the first day of a career to a little past the end of
/// the war.
bool isDayOfSave(const Calendar& day);
/// Replaces the text by the career as a save file.
void writeContent(const Database& career, std::string& content);
/// Replaces the career's records by those of a save file, as far as it goes. Indices may still lead
/// nowhere: repairCareer() fixes these. With a fault the records are undefined.
SaveReading readContent(Database& career, std::string_view content);
