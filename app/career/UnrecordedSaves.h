#pragma once

#include "app/career/Checksum.h"
#include "engine/core/FileFault.h"
#include "engine/core/String.h"

// The checksum of a save is in the record of the war. Where the record can't be written or isn't
// kept, a text file beside the save has it instead, so that the save isn't taken for one that was
// changed outside of the program. `save` is the path of the career's save file.

constexpr const char* UnrecordedEnding = ".sum";

/// Notes the checksum of a save that is about to get its name, beside those of the last 200. On
/// error: why, and a log line.
zel::FileFault noteUnrecorded(const zel::String& save, const CheckedBytes& content);
/// Whether that content was noted.
bool isUnrecorded(const zel::String& save, const CheckedBytes& content);
