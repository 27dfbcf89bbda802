#pragma once

#include <map>
#include <tuple>

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

    void add(const Source& source, const zel::String& what) { put(source, what, false); }
    void warn(const Source& source, const zel::String& what) { put(source, what, true); }
    /// Ends what is told of the line that ran last.
    void endLine();
    /// What goes wrong while no line runs is told of this place.
    void setBetweenLines(const Source& source);
    /// From now on the elements that lines make are remembered with their lines, for this menu.
    void watch(const zel::Menu* menu);
    /// Where the watched menu's element was made last.
    Source sourceOf(const zel::String& element) const;
    /// All findings, sorted, each once.
    tools::Findings sorted() const;

private:
    void put(const Source& source, const zel::String& what, bool isWarning);
    void takeLog();
    void noteElements();

    std::map<std::tuple<zel::String, int32_t, zel::String>, bool> faults; // to: only a warning
    Source betweenLines;
    Source running;
    const zel::Menu* watched = nullptr;
    std::map<zel::String, Source> elements;
    bool wasConsoleShown;
};

} // namespace menucheck
