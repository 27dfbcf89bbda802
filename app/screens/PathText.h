#pragma once

#include "engine/core/String.h"

// How paths are shown where there is little room: in display encoding, for fixed-width fonts.

/// A path of at most that many letters: a longer one loses its middle, "D:\...\Rise of Flight", and
/// a last name that is itself too long loses its beginning. Off Windows the player's own folder is
/// "~".
zel::String shortPath(const zel::String& path, size_t letters);
/// A path in at most that many lines, broken after separators. A longer one loses its middle.
zel::String pathInLines(const zel::String& path, size_t letters, size_t lines);
