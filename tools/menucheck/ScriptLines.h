#pragma once

#include "tools/menucheck/Findings.h"

namespace menucheck {

/// The words of a line as its command gets them: the condition is left out, the command lowered.
std::vector<zel::String> commandWords(const zel::MenuConfigFile::Line& line);
Source sourceOf(const zel::MenuConfigFile& script, const zel::MenuConfigFile::Line& line);
Source headerOf(const zel::MenuConfigFile& script, const zel::MenuConfigFile::Section& section);
/// The script's file and all that it includes, each once.
std::vector<zel::String> filesOf(const zel::MenuConfigFile& script);
/// The widget of a section "onhit NAME"; empty for any other section.
zel::String hitWidgetOf(const zel::MenuConfigFile::Section& section);
/// Whether the section runs when that event comes: of several with one name the last one does.
bool isInForce(const zel::MenuConfigFile& script, const zel::MenuConfigFile::Section& section);

/// Faults that can be seen without running: sections that never run, or once only, or twice, tabs,
/// lines for some displays only, texts of a section that no widget has.
void checkSections(const zel::HandledMenu& menu, const zel::MenuConfigFile& script,
                   bool mayHaveConditions, Findings& findings);

} // namespace menucheck
