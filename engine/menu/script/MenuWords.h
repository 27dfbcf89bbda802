#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/core/String.h"

/// Words that scripts, layouts and themes share: looks of a widget, directions, colours.
namespace zel {

/// The design's size in pixels; elements are positioned in it.
constexpr int32_t DesignWidth = 1024;
constexpr int32_t DesignHeight = 768;

/// The looks of a widget; indices of its images, tints and text colours.
enum WidgetLook : int32_t { LookActive, LookInactive, LookOver, LookDown, LookCount };

/// Bits of an alignment, an origin or a handle. Each direction has at most one bit set.
enum Alignment : int32_t {
    AlignLeft = 1,
    AlignHCenter = 2,
    AlignRight = 4,
    AlignTop = 8,
    AlignVCenter = 16,
    AlignBottom = 32,
};
constexpr int32_t AlignHorizontal = AlignLeft | AlignHCenter | AlignRight;
constexpr int32_t AlignVertical = AlignTop | AlignVCenter | AlignBottom;

/// Splits a line at its blanks. A double quote toggles a mode in which blanks don't split; quotes
/// at the ends of a word are removed, empty words dropped.
std::vector<String> splitWords(std::string_view line);

/// A set of looks, one bit each: all four for "all", otherwise one. Empty for any other word.
std::optional<int32_t> looksOfWord(std::string_view word);
/// "left", "hcenter" or "center", "right", and with `vertical` "top", "vcenter", "bottom" too.
std::optional<int32_t> alignmentOfWord(std::string_view word, bool vertical);
/// `bits` with the direction of `word` replaced.
int32_t withAlignment(int32_t bits, int32_t word);
/// ARGB: an optional "#", then eight hexadecimal digits, or six for an opaque colour.
std::optional<uint32_t> parseColor(std::string_view word);
/// The value of a flag: "on", "yes" and so on; empty for any other word, even "0".
std::optional<bool> parseFlag(std::string_view word);
/// An integer of a script, clamped to the range of coordinates, +-32768.
int32_t parseCoordinate(std::string_view word);
/// Seconds of a script, clamped to 0 to 3600.
float parseSeconds(std::string_view word);

} // namespace zel
