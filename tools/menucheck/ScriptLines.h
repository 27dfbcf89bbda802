#pragma once

#include "tools/menucheck/FindingLog.h"

namespace menucheck {

/// The words of a line as its command gets them: without the condition, the command lowered.
std::vector<zel::String> commandWords(const zel::MenuConfigFile::Line& line);
Source sourceOf(const zel::MenuConfigFile& script, const zel::MenuConfigFile::Line& line);
Source headerOf(const zel::MenuConfigFile& script, const zel::MenuConfigFile::Section& section);
/// The script's file and all that it includes, each once.
std::vector<zel::String> filesOf(const zel::MenuConfigFile& script);
/// The widget of a section "onhit NAME"; empty for any other section.
zel::String hitWidgetOf(const zel::MenuConfigFile::Section& section);
/// Whether the section runs at its event: only the last of a name does.
bool isInForce(const zel::MenuConfigFile& script, const zel::MenuConfigFile::Section& section);

/// Reports faults that are visible without running the script: sections that never run, or only
/// once or twice, tabs, lines for some displays only, sections of widgets that don't exist.
void checkSections(const zel::HandledMenu& menu, const zel::MenuConfigFile& script,
                   bool mayHaveConditions, FindingLog& findings);

} // namespace menucheck
