#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "engine/core/Clock.h"
#include "engine/core/String.h"

/// All that differs between Windows and POSIX systems, with SystemFiles.h and SystemPlaces.h.
/// System*Windows.cpp and System*Posix.cpp implement the three. Paths come in as the program writes
/// them, with backslashes. Off Windows these are turned, and each existing component is matched
/// exactly or, failing that, without regard to case, as the simulator's folder under Wine needs.
namespace zel::system {

/// A file or folder in a folder, by its name there.
struct DirectoryEntry {
    std::string name;
    bool isDirectory;
};

/// The size of a display.
struct Extent {
    int32_t width = 0; // pixels; 0 if unknown
    int32_t height = 0;
};

/// What the system knows about a file; zeroes for one that doesn't exist.
struct FileStatus {
    bool exists = false; // and is a regular file
    int64_t size = 0;    // bytes
    int64_t changed = 0; // time of the last change, in units of the system
};

uint32_t ticks();    // milliseconds since the program started
WallTime wallTime(); // the local date and time of day
/// When a file was changed last, in the local time zone; zeroes for one that doesn't exist.
WallTime wallTimeOf(const FileStatus& file);
/// The time that a file written now gets as FileStatus::changed, or a moment later.
int64_t fileTime();
uint32_t entropy();                            // a number that differs at each start
void sleepMilliseconds(uint32_t milliseconds); // a signal may end it early

/// Empty when the variable is unset.
String environment(const char* name);
/// Sets a variable for this process; an empty value removes it.
void setEnvironment(const char* name, const String& value);
/// The folder of users' application data, without a trailing separator: APPDATA; off Windows, where
/// that is unset, XDG_DATA_HOME, or .local/share in the home folder.
///
/// On Windows this folder, the next three and absolutePath() are given by their short names where
/// the code page lacks a character of the long ones. Where the disk keeps no short names, "?"
/// replaces such a character, and nothing is found by that path; this function logs it.
String applicationDataDirectory();
/// The player's own folder: USERPROFILE on Windows, HOME elsewhere. Empty if that is unset.
String homeDirectory();
String executableDirectory(); // without a trailing separator; empty if unknown
String currentDirectory();
bool changeDirectory(const String& path); // false, and nothing changed, on error
/// The path from the root, which stays valid after a change of directory.
String absolutePath(const String& path);
/// A file name from a text file, in the code page of the system's file names: a text that has bytes
/// above 127 and is UTF-8 throughout is converted, any other is unchanged. Off Windows names are
/// bytes, and none is changed.
String nameFromUtf8(const String& text);
/// The path from the root in UTF-8, for libraries that open files by such names.
std::string pathInUtf8(const String& path);
/// A text with file names of the system, as texts are drawn (TextEncoding.h); "?" for characters
/// that they lack. Only for showing: no file is found by it.
String shownText(const String& text);

/// A text as a terminal of the system shows it: in UTF-8, on Windows in the
/// console's code page.
String printedText(const String& text);

/// The C library's fopen for regular files only: a folder, a pipe or a device gives null. If
/// another program holds the file, opening is retried for half a second to write, and for less than
/// a tenth of a second to read.
FILE* openFile(const String& path, const char* mode);
FileStatus fileStatus(const String& path); // exists is false on error
bool isDirectory(const String& path);      // false on error
/// The folder's entries in no particular order, without "." and ".."; false if it can't be read. On
/// Windows an entry has its short name where the code page lacks a character of the long one, and
/// "?" for such a character where the disk keeps no short names.
bool listDirectory(const String& path, std::vector<DirectoryEntry>& entries);
/// True if the folder exists afterwards. Its parent must exist.
bool createDirectory(const String& path);
/// Renames over an existing file, atomically where the system can.
bool replaceFile(const String& from, const String& to);
/// The same, keeping the replaced file as `backup`. There is a file `to` at every moment.
bool replaceFileKeeping(const String& from, const String& to, const String& backup);
bool removeFile(const String& path); // false if it can't, or there is none

/// A text from HKEY_LOCAL_MACHINE in the Windows registry; empty if it can't be read, and on other
/// systems.
String queryRegistryValue(const String& keyPath, const String& valueName);
bool hasRegistry();

/// Windows' identifier of the user's locale, such as 1031 for German; 0 if unknown. LC_ALL
/// overrides it, for trying out a language. Off Windows it comes from LC_ALL, LC_MESSAGES or LANG,
/// the first that is set.
uint32_t userLocale();

/// Whether there is a screen to open windows on.
bool hasDisplay();
/// The largest size of a window, without its frame, that is centred on a desktop of that size and
/// clears the bars at its edges. Windows knows it exactly; elsewhere it is estimated.
Extent roomForWindow(Extent desktop);
/// Whether a program with a window has a standard output that anyone can see.
bool hasTerminals();
/// Call this first. Off Windows it opens failing standard streams in place of closed ones;
/// otherwise the next files opened would get their descriptors, and the program's output. On
/// Windows it keeps the system from asking the player for the disk of an empty drive.
void beginProgram();
/// Opens a web address, or a file that a browser shows, without waiting; false if that can't be
/// started. REQUIRES: it begins with "http://", or is an absolute path.
bool openBrowser(const String& address);

/// Whether the stream is a terminal, so that progress can be shown.
bool isTerminal(FILE* stream);

} // namespace zel::system

namespace zel {

/// The folder of Data and the program's other files: the current one, the program's own, `run`
/// beside the program's folder (a build tree), or share/wingtally beside it (installed). Empty if
/// none of them is it.
String findRunDirectory();

} // namespace zel
