#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "engine/core/Clock.h"
#include "engine/core/String.h"

/// All that differs between Windows and POSIX systems: SystemWindows.cpp and SystemPosix.cpp hold
/// the two sides of it. Paths come in as the program writes them, with backslashes; off Windows
/// they are turned, and each existing component is found exactly or, failing that, without regard
/// to case, as the simulator's folder under Wine needs it.
namespace zel::system {

struct DirectoryEntry {
    std::string name;
    bool isDirectory;
};

struct Extent {
    int32_t width = 0; // pixels; 0 if unknown
    int32_t height = 0;
};

struct FileStatus {
    bool exists = false; // and is a regular file
    int64_t size = 0;    // bytes
    int64_t changed = 0; // time of the last change, in the system's own fine units
};

uint32_t ticks(); // milliseconds since the program started
WallTime wallTime();
uint32_t entropy(); // a number that no two starts share
void sleepMilliseconds(uint32_t milliseconds);

/// Empty when the variable is unset.
String environment(const char* name);
/// Sets a variable for this process; an empty value takes it away.
void setEnvironment(const char* name, const String& value);
/// The folder of users' application data, without a separator at its end: APPDATA; off Windows,
/// where that is unset, XDG_DATA_HOME, or .local/share in the home folder.
///
/// On Windows this folder, the next two and absolutePath() are given by their short names where the
/// code page lacks a character of the long ones. Where the disk keeps no short names, "?" stands
/// for it, by which nothing is found; of this folder a log line tells.
String applicationDataDirectory();
String executableDirectory(); // without a separator at its end; empty if unknown
String currentDirectory();
bool changeDirectory(const String& path);
/// The path from the root, so that it holds after a change of directory.
String absolutePath(const String& path);
/// A name of a file as a text editor saved it, in the code page by which the system knows names: a
/// text that holds bytes above 127 and is UTF-8 as a whole is converted, every other one stays. Off
/// Windows names are bytes, and all stay.
String nameFromUtf8(const String& text);
/// A text that holds the system's own names of files, in the Windows-1252 that is drawn; "?" for
/// what that lacks. For showing only: no file is found by it.
String shownText(const String& text);

/// A text in Windows-1252 as a terminal of the system shows it: in UTF-8, on Windows in the
/// console's code page.
String printedText(const String& text);

/// The C library's fopen for regular files only: a folder, a pipe or a device gives null. A file
/// that somebody holds is tried again for half a second before it is written, and for less than a
/// tenth before it is read.
FILE* openFile(const String& path, const char* mode);
FileStatus fileStatus(const String& path);
bool isDirectory(const String& path);
/// The folder's entries in no order, without "." and ".."; false if it can't be read.
bool listDirectory(const String& path, std::vector<DirectoryEntry>& entries);
/// True if the folder exists afterwards. Its parent must exist.
bool createDirectory(const String& path);
/// Renames over an existing file, in one step where the system can.
bool replaceFile(const String& from, const String& to);
/// The same, with the file that was there kept under `backup`. At every moment there is a file
/// `to`.
bool replaceFileKeeping(const String& from, const String& to, const String& backup);
bool removeFile(const String& path);

/// A text of HKEY_LOCAL_MACHINE in the registry of Windows; empty if it can't be read, and
/// everywhere else.
String queryRegistryValue(const String& keyPath, const String& valueName);

/// The identifier by which Windows knows the user's locale, such as 1031 for German; 0 if unknown.
/// LC_ALL goes before it, for trying out a language. Off Windows it is found by LC_ALL, LC_MESSAGES
/// or LANG, the first of them that is set.
uint32_t userLocale();

/// Whether there is a screen to open windows on.
bool hasDisplay();
/// The most that a window can show when it stands in the middle of a desktop of that size, with its
/// frame and all of it clear of the bars at the edges. Windows knows it better than by that size.
Extent roomForWindow(Extent desktop);
/// Whether a program with a window has a standard output that somebody can look at.
bool hasTerminals();
/// Shows a web address in the player's browser, without waiting for it; false if that can't be
/// started. REQUIRES: the address begins with "http://".
bool openBrowser(const String& address);

/// Whether somebody watches the stream, so that progress can be shown.
bool isTerminal(FILE* stream);

} // namespace zel::system

namespace zel {

/// The folder that holds Data and the other files that the program is shipped with: the current
/// one, the one of the program, `run` beside the program's folder (a build tree), or
/// share/wingtally beside it (installed). Empty if none of them does.
String findRunDirectory();

} // namespace zel
