#pragma once

#include <cstdint>

#include "engine/core/String.h"

class Database;

// Units have six-digit numbers: three digits of nation, three digits of unit (501011 is Jasta 11).

/// The name of a unit by its number, such as "Jasta 11", in the language in use; "(number)" for a
/// number outside all known ranges.
zel::String unitName(int32_t number);
/// For when that is too long: the short form of its range, or the same name if it has none.
zel::String shortUnitName(int32_t number);
/// Whether the unit is one of the navy; false outside the known ranges.
bool isNavalUnit(int32_t number);
/// Whether a known range holds the number.
bool hasUnitName(int32_t number);
/// The number of a squadron file's unit; -1 for an index out of range.
int32_t unitNumber(const Database& career, int32_t squadronFile);
