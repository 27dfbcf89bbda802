#pragma once

#include "tools/menucheck/Findings.h"

namespace menucheck {

/// What a script's author tells the check, in comments: "#check code NAME..." and the like.
struct ScriptNotes {
    std::map<zel::String, Source> code;  // widgets that the program's code answers
    std::map<zel::String, Source> leads; // states to which the code leads from here
    std::set<zel::String> overlapping;   // elements that may lie over others
};
/// Unknown notes are faults.
ScriptNotes readNotes(const zel::String& file, Findings& findings);

/// Faults that can be seen without running: sections that never run, or once only, or twice, tabs,
/// conditions with quotes, texts of a section that no widget has.
void checkSections(const zel::HandledMenu& menu, zel::MenuConfigFile& script, Findings& findings);

} // namespace menucheck
