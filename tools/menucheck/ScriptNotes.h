#pragma once

#include <set>

#include "tools/menucheck/FindingLog.h"

namespace menucheck {

/// The notes for this check in a screen's script and the files that it includes: comments such as
/// "#check code NAME...". docs/menu-scripts.md lists them.
struct ScriptNotes {
    struct NamedElement {
        zel::String name;
        Source source;
    };
    struct WidestText {
        zel::String element, text;
        Source source;
    };
    /// Groups of elements; each element may overlap those of the other groups.
    using Overlap = std::vector<std::set<zel::String>>;

    std::map<zel::String, Source> code;  // widgets whose hits the program's code handles
    std::map<zel::String, Source> leads; // states to which the code leads from here
    std::vector<Overlap> overlaps;
    std::vector<WidestText> widest; // texts that code may show
    std::map<zel::String, std::vector<NamedElement>>
        kinds;                       // widgets to which code may give that kind
    std::vector<NamedElement> named; // elements that any note names
    std::set<zel::String> stretched; // images that are drawn in any size
    std::set<zel::String> pictures;  // files and images that code draws, in lower case
    std::map<int32_t, Source> texts; // language texts that code takes
    bool mayHaveConditions = false;

    bool mayOverlap(const zel::String& a, const zel::String& b) const;
    /// Whether a note of overlaps names it: then its position matters even while it is hidden.
    bool isAlternative(const zel::String& element) const;
};

/// Unknown and incomplete notes are faults.
ScriptNotes readNotes(const zel::MenuConfigFile& script, FindingLog& findings);
/// Adds the notes of one file.
void readNotesOf(const zel::String& name, ScriptNotes& notes, FindingLog& findings);

} // namespace menucheck
