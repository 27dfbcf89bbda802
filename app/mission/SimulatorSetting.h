#pragma once

#include <string>
#include <string_view>

#include "engine/core/FileFault.h"
#include "engine/core/String.h"

/// The result of writing the simulator's folder into the settings.
struct SettingWritten {
    zel::FileFault fault = zel::FileFault::None;
    zel::String file; // the file that was written, or couldn't be, with its path
};

/// Writes the simulator's folder as rof.directory into the settings file that decides, and reads
/// all settings again. That is the one whose line overrides the others'; without such a line the
/// file that the player should write (settingsFileToWrite), or his own if that can't be written.
/// Comments, unknown lines and line ends stay. On error every file is as it was: Other also means
/// a name that a settings file can't hold.
SettingWritten writeSimulatorFolder(const zel::String& folder);

/// The content of a settings file with that value for the key: in the last line that has the key,
/// otherwise after the last comment that shows it, or at the end if there is none.
std::string withSetting(std::string_view settings, std::string_view key, std::string_view value);
