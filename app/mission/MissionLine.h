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
/// A name that is safe in the mission's text: a double quote, which would end it, becomes an
/// apostrophe.
zel::String missionName(const zel::String& name);
