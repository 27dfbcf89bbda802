#pragma once

#include <set>

#include "tools/menucheck/FindingLog.h"

namespace menucheck {

/// How a player gets from screen to screen.
class Ways {
public:
    /// The target is written as in scripts. An unknown state, or `from` itself, is a fault; web
    /// addresses are ignored.
    void add(const zel::String& from, const zel::String& target, const Source& source,
             FindingLog& findings);
    /// Reports screens that can't be reached from the first one, and dead ends.
    void check(const std::map<zel::String, Source>& screens, const zel::String& first,
               FindingLog& findings) const;

private:
    std::map<zel::String, std::set<zel::String>> targets;
};

} // namespace menucheck
