#pragma once

#include "engine/core/String.h"

class CareerRecord;
class Database;

/// Writes the career's log book as a web page into the player's folder, since the career may have
/// none of its own yet, and opens it in the browser. Returns the text that the screen shows: where
/// the page is, or why it isn't written.
zel::String writeBookPage(CareerRecord& record, const Database& career);
