#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The value of mission_text_log in the content of a startup.cfg: the last line that has it counts,
/// and none means 0. isReported: each of them goes to the console.
int32_t textLogValue(std::string_view settings, bool isReported = false);

/// The content with mission_text_log = 1 in its section, [KEY = system]. Each line that has it gets
/// that value; a section without it gets a line at its end. A text without the section gets one,
/// unless it has the line outside of all sections. Every other byte stays as it is; new lines end
/// as the line before them does. A text that has it already is unchanged.
std::string withTextLogOn(std::string_view settings);
