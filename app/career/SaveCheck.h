#pragma once

#include <cstdint>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// Why a save can't be used.
enum class SaveFault {
    None,
    Missing,
    Unread,       // the system can't read it
    NoSave,       // another kind of file, or its head is damaged
    OtherVersion, // of the save file
    Lost,         // too much of it is damaged
};

/// Whether a file has the checksum that it had when it was saved.
enum class SaveMatch {
    Unknown, // there is no record of that career
    Whole,
    Changed, // changed or damaged outside of the program
};

/// Which file a career was loaded from: another one if the save was missing. A program killed on a
/// file system without links can leave none.
enum class SaveSource {
    Named,
    Draft,  // a whole one, which now has the name
    Backup, // the save before it
};

/// The result of reading a save file.
struct SaveCheck {
    SaveFault fault = SaveFault::None;
    zel::FileFault reason = zel::FileFault::None; // of Unread
    int32_t version = 0;                          // of OtherVersion
    SaveMatch match = SaveMatch::Unknown;
    zel::String checksum; // of the file that was read, for the career's observer
    SaveSource source = SaveSource::Named;
    bool replacesUnread = false; // an earlier save was read, as the present one could not be
};

/// Why the save can't be used, as the end of an English sentence about it: "it is no save game".
zel::String saveFaultText(const SaveCheck& check);
