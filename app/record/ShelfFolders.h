#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "app/career/Problem.h"
#include "app/career/SaveSummary.h"
#include "engine/core/String.h"
#include "engine/core/System.h"

/// The folder, in the user's folder, of a career on its way to CurrentFolder.
constexpr const char* IncomingFolder = "Saves.next";
/// Part of the name of a folder whose career can't be read.
constexpr const char* UnknownPilot = "Unknown";

// The folders of the careers, for Shelf. Paths are in the system's encoding, without a separator at
// their end. An operation that fails says why in `problem` and changes nothing.

/// The path of a folder in the user's folder, such as CurrentFolder.
zel::String userPath(const char* folder);

/// A career's folder on the shelf: "0003 Erich Sommer", with a name that every system takes.
zel::String shelfFolderName(int32_t number, std::string_view pilot);
/// The highest number of a career. What is greater isn't one.
constexpr int32_t LastShelfNumber = 9999999;
/// The number that a folder's name begins with; 0 for none.
int32_t numberOfFolder(std::string_view name);
/// The last part of a path.
std::string_view nameOfFolder(std::string_view path);

struct CareerFolder {
    int32_t number = 0;
    zel::String path;
    bool isPutAway = false;
};
/// The folders of careers on the shelf and of those put away, sorted by the length of their paths
/// and then by their bytes: a copy made by hand comes after its original. On error `problem` says
/// which folder can't be read, and those that can be are given.
std::vector<CareerFolder> shelfFolders(Problem& problem);

/// The path of the save in a career's folder.
zel::String saveIn(const zel::String& folder);
/// The path of its record.
zel::String recordIn(const zel::String& folder);
/// Whether a file or folder of that name belongs to a career: a save, an earlier one, a record,
/// pages.
bool isCareerFile(std::string_view name);
/// Whether the path, which may be any, is one of these in the user's folder or below it.
bool belongsToCareer(const zel::String& path);
/// The entries of a folder; none of one that doesn't exist.
[[nodiscard]] bool listFolder(const zel::String& folder,
                              std::vector<zel::system::DirectoryEntry>& entries, Problem& problem);
/// Whether the folder has any of these. A folder that can't be read counts as a career's: it must
/// not be taken for an empty one.
bool holdsCareer(const zel::String& folder);
/// Whether it has a save or an earlier one, possibly among its pages.
bool holdsSave(const zel::String& folder);

/// The number that the folder keeps for its career; 0 for none.
int32_t keptNumber(const zel::String& folder);
/// How the folder's career was closed; open without a file that says so.
Closing keptClosing(const zel::String& folder);
/// Makes the folder keep how its career was closed, or that it is open.
[[nodiscard]] bool keepClosing(const zel::String& folder, const Closing& closing, Problem& problem);
/// The number after the highest one that a career has had; after LastShelfNumber the lowest free
/// one. folders: all of shelfFolders().
int32_t nextNumber(const std::vector<CareerFolder>& folders);
/// Makes the folder keep that number.
[[nodiscard]] bool keepNumber(const zel::String& folder, int32_t number, Problem& problem);
/// The number of a career that isn't on the shelf. The folder gets a new one and keeps it if it has
/// none, or one that a career on the shelf has. 0 on error.
[[nodiscard]] int32_t claimNumber(const zel::String& folder, Problem& problem);

/// True if the folder is there afterwards.
[[nodiscard]] bool makeFolder(const zel::String& folder, Problem& problem);
/// Renames a folder and syncs the folders around it. Nothing may have the new name.
[[nodiscard]] bool moveFolder(const zel::String& from, const zel::String& to, Problem& problem);
/// Frees the name of a folder that holds no career: removes it if it is empty, and otherwise
/// renames it to "NAME.other". True if nothing has the name afterwards.
[[nodiscard]] bool clearFolder(const zel::String& folder, Problem& problem);
