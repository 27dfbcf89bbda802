#pragma once

#include <cstdint>

class Database;

/// Adds so many flights of the player's pilot to the record of the career in memory, one every few
/// days up to its date. Each is a fight of his squadron against four others, with its places; every
/// third brings a victory. The save knows nothing of them.
void addFlightsToBook(Database& career, int32_t count);
/// The player, an Englishman, falls to a German of the career: one more flight of his, which is
/// carried into the career too.
void addFallToBook(Database& career);
