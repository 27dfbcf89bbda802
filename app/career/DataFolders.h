#pragma once

#include <string>
#include <vector>

#include "engine/core/String.h"

// The two folders of squadron files, or of pilot files, that the history of the war comes from: one
// is delivered, the other one is the player's. The career and wingtally-datacheck list them here,
// so that both mean the same files and the same records.

/// The longest line of such a file and the longest name of a record, in characters. What goes
/// beyond is cut.
constexpr size_t LongestDataLine = 255;
constexpr size_t LongestRecordName = 63;
/// The longest key of a squadron that a pilot's unit= finds, in characters.
constexpr size_t LongestSquadronKey = 11;

/// A file of the history. Files of the same name, in both folders, are one record: the lines of the
/// player's file follow those of the delivered one.
struct DataFile {
    zel::String path;
    std::string name;      // its own, without an ending of three letters
    size_t record = 0;     // counted by the first file of each, from 0
    bool isCustom = false; // in the player's folder
};

/// The files of both folders in the order in which they are read: the delivered ones first, each
/// folder by name. Sub-folders are left out. The paths of the folders end in a separator. On error:
/// a folder that isn't there has no files; only for the delivered one is that logged.
std::vector<DataFile> listDataFiles(const zel::String& delivered, const zel::String& custom);
