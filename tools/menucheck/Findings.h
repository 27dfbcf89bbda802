#pragma once

#include <cstdio>
#include <map>
#include <set>

#include "engine/menu/HandledMenu.h"
#include "tools/menucheck/MenuCheck.h"

namespace menucheck {

struct Source {
    zel::String file;
    int32_t line = 0;
};

/// Gathers faults, and knows which line of which script is running, so that what goes wrong
/// meanwhile is told of that line. It takes over the log, the reports of scripts and their line
/// observer for as long as it lives.
class Findings {
public:
    Findings();
    ~Findings();
    Findings(const Findings&) = delete;
    Findings& operator=(const Findings&) = delete;

    void add(const Source& source, const zel::String& what);
    /// Ends what is told of the line that ran last.
    void endLine();
    /// What goes wrong while no line runs is told of this file.
    void setBetweenLines(const zel::String& file);
    /// The elements that lines made are remembered with their lines, for this menu.
    void watch(const zel::Menu* menu);
    /// Where the watched menu's element was made.
    Source sourceOf(const zel::String& element) const;
    /// All faults, sorted, each once.
    Faults sorted() const;

private:
    void takeLog();
    void noteElements();

    std::set<std::pair<std::pair<zel::String, int32_t>, zel::String>> faults;
    Source betweenLines;
    Source running;
    const zel::Menu* watched = nullptr;
    std::map<zel::String, Source> elements;
    FILE* log;
    bool wasConsoleShown;
};

} // namespace menucheck
