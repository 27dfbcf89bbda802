#pragma once

#include "tools/menucheck/ScriptNotes.h"

namespace menucheck {

/// Reports faults of the menu's present elements: positions, overlaps, images and their sizes,
/// fonts, texts, also those that code may set, and widgets without effect. Each widget ends up with
/// the last of the kinds that code may give it.
void checkElements(zel::HandledMenu& menu, const ScriptNotes& notes, FindingLog& findings);

} // namespace menucheck
