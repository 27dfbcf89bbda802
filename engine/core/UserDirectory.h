#pragma once

#include "engine/core/String.h"

namespace zel {

/// The application's title, which is also its folder in the user's application data. The
/// application sets it at its start.
void setApplicationTitle(const String& title);
String applicationTitle();

/// The folder of the user's files, with a trailing backslash: the system's folder for application
/// data and the application's title.
String getUserDirectory();
/// Moves the user's files elsewhere, for tests and for players with several careers; an empty text
/// goes back to the system's folder.
void setUserDirectory(const String& path);

} // namespace zel
