#pragma once

#include "app/career/Wording.h"

// The texts about the simulator's folder.
// clang-format off
namespace wording {

inline constexpr Wording FoundByNames[] = { // by FoundBy
    {4600, "Last time"}, {4601, "Chosen"}, {4602, "Registry"}, {4603, "Steam"},
    {4604, "Proton"},    {4605, "Wine"},   {4606, "Disk"},
};
inline constexpr Wording SwitchOutcomes[] = { // by SwitchOutcome; the backup's name, the reason
    {4610, "The text log is on. The old file is kept as $1."},
    {4611, "The text log is on already."},
    {4612, "Rise of Flight is running. Close it first: it would undo the change."},
    {4613, "There is no startup.cfg in the folder data."},
    {4614, "startup.cfg is not plain text. Set mission_text_log = 1 in it with the program that wrote it."},
    {4615, "startup.cfg can't be read. $2"},
    {4616, "startup.cfg can't be written. $2 Set mission_text_log = 1 in it yourself, in its section [KEY = system]."},
};

} // namespace wording
// clang-format on
