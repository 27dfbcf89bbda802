#pragma once

#include "tools/menucheck/ScriptNotes.h"

namespace menucheck {

/// Faults of the elements that the menu has now: places, overlaps, images and their sizes, fonts,
/// texts and those that code may set, and widgets that do nothing. Widgets are left with the last
/// of the kinds that code may give them.
void checkElements(zel::HandledMenu& menu, const ScriptNotes& notes, Findings& findings);

} // namespace menucheck
