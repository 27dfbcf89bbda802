#pragma once

#include "tools/menucheck/ScriptNotes.h"

namespace menucheck {

/// Faults of the elements that the menu has now: places, overlaps, images, fonts, texts, and
/// buttons that lead nowhere.
void checkElements(zel::HandledMenu& menu, const ScriptNotes& notes, Findings& findings);

} // namespace menucheck
