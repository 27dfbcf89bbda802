#pragma once

#include <string>

class Database;

/// What must hold of every career at every moment: the indices name something, each used slot's
/// pilot names that squadron, no pilot is in two slots, the slots after the used ones are free, the
/// player and every living pilot are in a slot, historical squadrons are the first and have the
/// files of their own indices, a joined pilot's file and record name each other, a pending
/// invitation comes from the player's nation, the date is a day of the war, texts end within their
/// arrays.
///
/// Returns at most the first ten faults, one per line; empty if there are none.
std::string careerFaults(const Database& career);

/// The same for a career that the program itself made, or that was loaded, whatever the file held:
/// texts have no control characters either, nations are of the war or of a squadron file, and flags
/// and figures are within what a war brings.
std::string loadedCareerFaults(const Database& career);
