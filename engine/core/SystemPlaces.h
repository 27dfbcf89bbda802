#pragma once

#include <string_view>
#include <vector>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// What differs between Windows and POSIX systems around the program: disks, links, running
/// programs, the terminal and libraries. All of it may be called from any thread.
namespace zel::system {

/// The folders at which a player begins to browse: the drives of Windows ("C:\"); elsewhere "/" and
/// the folders in which disks appear. Those that exist.
std::vector<String> driveRoots();
/// The disks of this machine that hold games, without network drives, by their root folders; off
/// Windows those that are mounted beside the system's own.
std::vector<String> localDrives();
/// The canonical path of a file or folder, with all links followed; empty if it doesn't exist.
String canonicalPath(const String& path);
/// Why a file that exists must not be changed: it is marked as read-only, or can't be opened for
/// writing. None if it may be. Its content isn't touched.
FileFault writeFault(const String& path);
/// Whether a program of that file name runs, such as "ROF.exe", without regard to case. Off Windows
/// that includes programs that Wine runs.
bool isProgramRunning(std::string_view name);
/// A file name as a terminal of the system shows it: on Windows in the console's code page, which
/// differs from that of file names; elsewhere unchanged.
String printedName(const String& name);
/// Whether the OpenGL library can be loaded. Only with a window does it show whether its driver
/// draws.
bool hasOpenGl();

} // namespace zel::system
