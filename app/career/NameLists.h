#pragma once

#include <cstdint>

#include "engine/core/String.h"

class Database;

namespace zel {
class Random;
}

/// Loads the first and last names of all nations. On error: a missing or empty list is logged at
/// level 3, and its names are empty.
void loadNameLists(Database& career);
/// A new pilot's name, "First Last", by two draws of the career: the last name's, then the first
/// name's. A nation without names of its own is written to the console and gets those of its side.
zel::String drawPilotName(Database& career, int32_t nation);
/// The same by draws of that generator.
zel::String drawPilotName(const Database& career, int32_t nation, zel::Random& random);
