#pragma once

#include <set>

#include "tools/menucheck/Findings.h"

namespace menucheck {

/// What the authors of a screen's script and of the files that it includes tell the check, in
/// comments: "#check code NAME..." and the like. docs/menu-scripts.md lists them.
struct ScriptNotes {
    struct Name {
        zel::String name;
        Source source;
    };
    struct Text {
        zel::String element, text;
        Source source;
    };
    /// Groups of elements, each of which may lie over those of the other groups of its line.
    using Overlap = std::vector<std::set<zel::String>>;

    std::map<zel::String, Source> code;  // widgets that the program's code answers
    std::map<zel::String, Source> leads; // states to which the code leads from here
    std::vector<Overlap> overlaps;
    std::vector<Text> widest;                       // texts that code may show
    std::map<zel::String, std::vector<Name>> kinds; // widgets to which code may give that kind
    std::vector<Name> named;                        // elements that notes name, wherever that is
    std::set<zel::String> stretched;                // images that are drawn in any size
    std::set<zel::String> pictures;                 // files and images that code draws, lowered
    std::map<int32_t, Source> texts;                // language texts that code takes
    bool mayHaveConditions = false;

    bool mayOverlap(const zel::String& a, const zel::String& b) const;
    /// Whether a note of overlaps names it: then its place matters even while it is hidden.
    bool isAlternative(const zel::String& element) const;
};

/// Notes that are unknown or name too little are faults.
ScriptNotes readNotes(const zel::MenuConfigFile& script, Findings& findings);
/// Adds the notes of one file.
void readNotesOf(const zel::String& name, ScriptNotes& notes, Findings& findings);

} // namespace menucheck
