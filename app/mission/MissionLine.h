#pragma once

#include <string_view>

#include "engine/core/String.h"

// The text of missions and of their template, line by line.

/// One line of mission text, cut at its first "=".
struct MissionLine {
    zel::String key;        // without blanks and tabs around it, in lower case
    std::string_view value; // unchanged; a view into the line
};
MissionLine splitMissionLine(const zel::String& line);
/// A block's name: the line without blanks and tabs around it, in its own case.
zel::String blockName(const zel::String& line);
/// A mission value without ";" and blanks around it, as a number; 0 for anything else.
float missionFloat(std::string_view value);
/// The name as the simulator can hold it, in ASCII: ae for an umlaut, e for an accent, and for a
/// character that would end or break its text ("\";={}", controls) one that resembles it.
zel::String missionName(const zel::String& name);
/// Whether the simulator can hold that name of a skin's file: printable ASCII without quotes,
/// semicolons and braces, and no path.
bool isMissionSkin(std::string_view skin);
