#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"

class BookTables;
class Database;

/// A squadron in which a career can begin.
struct SquadronToJoin {
    int32_t file = -1;      // index of its file, which is its own index in a new career
    zel::String key;        // as in the data files
    zel::String machine;    // identifier of what it flies, one that the player has switched on
    zel::String knownPilot; // the man in it that month with the most victories in the real war;
                            // empty for none
};

/// The squadrons of the service that fly in the month, by their keys. Squadrons without a name, and
/// those that fly only types that the player has switched off, are left out. Reads the career's
/// data files and draws nothing.
std::vector<SquadronToJoin> squadronsToJoin(const Database& career, const BookTables& tables,
                                            int32_t service, int32_t year, int32_t month);

/// Columns of a list, with the blank after them.
constexpr size_t SquadronLetters = 22;
constexpr size_t FlownLetters = 20;
constexpr size_t BaseLetters = 16;
constexpr size_t KnownLetters = 20;
/// "No 56 Squadron RFC    SE5a                Near Arras      Albert Ball": names that are too long
/// for their column are shortened. base: in the language in use; without one there is no such
/// column.
zel::String squadronRow(const SquadronToJoin& squadron, const zel::String& base);
/// The squadrons with their keys as lines under the heads of the columns; no line without any.
/// Their bases are missing: they are drawn when a career begins.
std::vector<zel::String> squadronLines(const std::vector<SquadronToJoin>& squadrons);
