#pragma once

#include <set>

#include "tools/menucheck/Findings.h"

namespace menucheck {

/// How a player gets from screen to screen.
class Ways {
public:
    /// The target as scripts write it. One that is no state, or `from` itself, is a fault; an
    /// address of the web is no way.
    void add(const zel::String& from, const zel::String& target, const Source& source,
             Findings& findings);
    /// Faults of screens that the first one doesn't lead to, and of those that lead nowhere.
    void check(const std::map<zel::String, Source>& screens, const zel::String& first,
               Findings& findings) const;

private:
    std::map<zel::String, std::set<zel::String>> targets;
};

} // namespace menucheck
