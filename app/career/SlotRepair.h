#pragma once

#include <cstdint>

class Database;

/// Makes slots and pilots name each other, in both directions: each living pilot is in one slot of
/// the squadron that he names, and a slot holds no one else's pilot. A slot that names nobody of
/// its squadron gets the living pilot who is missing there, otherwise the one whom it names,
/// otherwise a dead man of the squadron, so that a replacement takes his place. A living pilot for
/// whom no slot is left is marked dead. Returns the number of wrong slots, counts and pilots.
/// `living`: pilots that are alive.
/// REQUIRES: a pilot's squadron is -1 or an index.
int32_t repairSlots(Database& career, int32_t living);
