#pragma once

#include <map>
#include <string_view>
#include <tuple>

#include "engine/menu/HandledMenu.h"
#include "tools/menucheck/MenuCheck.h"

namespace menucheck {

/// A place in a script; line 0 means the whole file.
struct Source {
    zel::String file;
    int32_t line = 0;
};

/// Collects findings and tracks which script line is running, so that it can attribute log lines to
/// it. During its lifetime it owns the log's sink, the scripts' fault sink and their line observer.
class FindingLog {
public:
    FindingLog();
    ~FindingLog();
    FindingLog(const FindingLog&) = delete;
    FindingLog& operator=(const FindingLog&) = delete;

    void add(const Source& source, const zel::String& what) { put(source, what, false); }
    void warn(const Source& source, const zel::String& what) { put(source, what, true); }
    /// Attributes the log so far to the line that ran last, which ends there.
    void endLine();
    /// Attributes what is logged while no line runs to this source.
    void setBetweenLines(const Source& source);
    /// Records from now on which line creates which element of this menu. Null ends that.
    void watch(const zel::Menu* menu);
    /// The line that created the element of the watched menu last.
    Source sourceOf(const zel::String& element) const;
    /// All findings, sorted, each once; without missing images that another finding explains.
    tools::Findings sorted() const;

private:
    void put(const Source& source, const zel::String& what, bool isWarning);
    bool explains(std::string_view picture) const;
    void takeLog();
    void noteElements();

    std::map<std::tuple<zel::String, int32_t, zel::String>, bool> faults; // true for a warning
    Source betweenLines;
    Source running;
    const zel::Menu* watched = nullptr;
    std::map<zel::String, Source> elements;
    bool wasConsoleShown;
};

} // namespace menucheck
