#include "tools/datacheck/NameCheck.h"

#include <set>
#include <string>

#include "app/career/PilotReport.h"
#include "app/mission/MissionLine.h"
#include "tools/common/PilotNames.h"

namespace datacheck {

namespace {

// After the name of an ace the log has "/" and his victories.
static_assert(tools::LongestAceName + 4 == LongestLoggedName);

constexpr const char* NationsWithNames[] = {"France", "England", "Germany", "USA"};

/// The line with the longest name of a list.
struct LongestName {
    zel::String file;
    TextLine line{1, {}};
};

LongestName checkList(const zel::String& file, Findings& findings) {
    LongestName longest{file};
    std::set<zel::String> seen; // lowered
    for (const TextLine& line : readText(file, findings)) {
        tools::Finding finding = checkName(line.text, file, line.number);
        if (!finding.message.empty() && isPlain(line.text)) // the others are reported already
            findings.push_back(std::move(finding));
        if (!seen.insert(line.text.toLower()).second)
            findings.emplace_back(file, line.number, line.text + " occurs twice", "remove one");
        if (line.text.length() > longest.line.text.length())
            longest.line = line;
    }
    return longest;
}

} // namespace

tools::Finding checkName(std::string_view name, const zel::String& file, int32_t line) {
    if (!isPlain(name))
        return {file, line, "the name has a character outside of ASCII",
                "write ae for an umlaut, e for an accent"};
    if (const zel::String held = missionName(zel::String(name)); held != name)
        return {file, line, "the name has one of ; = { } \" which the simulator can't read",
                "leave it out, or missions have " + std::string(held.view())};
    if (name.front() == ' ' || name.back() == ' ' || name.find("  ") != name.npos)
        return {file, line, "the name has a blank too many", "write one blank between its parts"};
    return {};
}

void checkNameLists(const zel::String& dataFolder, Findings& findings) {
    for (const char* nation : NationsWithNames) {
        const zel::String start = dataFolder + "/Names/" + nation;
        const LongestName first = checkList(start + "_1st.txt", findings);
        const LongestName last = checkList(start + "_2nd.txt", findings);
        const zel::String whole = first.line.text + " " + last.line.text;
        if (whole.view().size() > tools::LongestAceName)
            findings.emplace_back(first.file, first.line.number,
                                  whole + " has " + whole.length() +
                                      " characters; the simulator keeps " +
                                      static_cast<int32_t>(tools::LongestAceName),
                                  "remove the longest names");
    }
}

} // namespace datacheck
