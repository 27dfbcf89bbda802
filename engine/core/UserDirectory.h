#pragma once

#include "engine/core/String.h"

namespace zel {

/// The application's title, which names its folder among the user's application data. The
/// application sets it at its start.
void setApplicationTitle(const String& title);
String applicationTitle();

/// Where the user's files lie, with a backslash at the end: the system's folder for application
/// data, then the application's title.
String getUserDirectory();
/// Puts the user's files elsewhere, for tests and for players with several careers; the empty text
/// goes back to the system's folder.
void setUserDirectory(const String& path);

} // namespace zel
