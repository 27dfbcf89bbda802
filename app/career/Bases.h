#pragma once

#include <cstdint>

#include "engine/core/String.h"

class Database;
struct Squadron;

// The player's preferences for the maps that he may be based on, both on at first. With both off he
// stays on the Western Front.
constexpr const char* WesternMapKey = "mapWestern";
constexpr const char* ChannelMapKey = "mapChannel";

/// Gives a squadron one of its side's airfields. If the Channel map may be drawn, one squadron in
/// five goes there. The player's squadron stays on a map that his preferences allow. Draws from
/// the engine's shared generator. An index out of range changes and draws nothing.
void assignBase(Database& career, int32_t squadron, bool allied, bool mayDrawChannel);

/// Puts a squadron whose base is damaged back on the airfield of that name or position, otherwise
/// on the first one of its side and map. Draws nothing.
void restoreBase(Squadron& squadron);

/// The name of the airfield at which the squadron would begin as the player's: its own, or one of
/// its side if that is on a map that his preferences have switched off. Draws nothing. REQUIRES: a
/// valid index.
zel::String baseForPlayer(const Database& career, int32_t squadron);

/// Moves the squadron to the airfield of that name. Draws nothing. REQUIRES: a valid index and an
/// airfield's name.
void moveToBase(Database& career, int32_t squadron, const zel::String& name);

/// Moves the player's squadron if its base is on a map that his preferences have switched off.
/// REQUIRES: a career.
void keepPlayerOnAllowedMap(Database& career);
