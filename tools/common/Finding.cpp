#include "tools/common/Finding.h"

#include <algorithm>
#include <tuple>

#include "tools/common/Print.h"

namespace tools {

std::string Finding::text() const {
    std::string text = file;
    if (!file.empty() && line > 0)
        text += ":" + std::to_string(line);
    if (!file.empty())
        text += ": ";
    text += (isWarning ? "warning: " : "") + message;
    if (!suggestion.empty())
        text += ": " + suggestion;
    return text;
}

void sortByPlace(Findings& findings) {
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.file, a.line) < std::tie(b.file, b.line);
    });
}

int printFindings(const Findings& findings, std::FILE* stream) {
    for (const Finding& finding : findings)
        print(stream, finding.text() + "\n");
    return std::all_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.isWarning; })
               ? 0
               : 1;
}

} // namespace tools
