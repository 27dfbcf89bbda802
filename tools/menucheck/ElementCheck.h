#pragma once

#include "tools/menucheck/ScriptNotes.h"

namespace menucheck {

/// Reports faults of the menu's current elements: positions, overlaps, images and their sizes,
/// fonts, texts (including those that code may set), and widgets without effect. Leaves each widget
/// with the last of the kinds that code may give it.
void checkElements(zel::HandledMenu& menu, const ScriptNotes& notes, FindingLog& findings);

} // namespace menucheck
