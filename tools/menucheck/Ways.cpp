#include "tools/menucheck/Ways.h"

#include "engine/window/StatesMachine.h"

namespace menucheck {

using zel::String;

namespace {

constexpr const char* QuitState = "quitApp"; // the loop's own
constexpr std::string_view AddressMark = "http://";

bool isState(const String& name) {
    return name == QuitState || zel::StatesMachine::getInstance().findState(name) != nullptr;
}

String withoutMark(const String& target) {
    const bool hasMark = target.length() > 1 && target.view().front() == '<';
    return hasMark ? target.right(target.length() - 1) : target;
}

} // namespace

void Ways::add(const String& from, const String& target, const Source& source,
               FindingLog& findings) {
    if (target.view().substr(0, AddressMark.size()) == AddressMark)
        return;
    const String to = withoutMark(target);
    if (!isState(to))
        findings.add(source, String("no such state: ") + target);
    else if (to == from)
        findings.add(source, String("leads to its own screen: ") + target);
    else
        targets[from].insert(to);
}

void Ways::check(const std::map<String, Source>& screens, const String& first,
                 FindingLog& findings) const {
    std::set<String> reached{first};
    std::vector<String> waiting{first};
    while (!waiting.empty()) {
        const auto from = targets.find(waiting.back());
        waiting.pop_back();
        if (from == targets.end())
            continue;
        for (const String& to : from->second) {
            if (reached.insert(to).second)
                waiting.push_back(to);
        }
    }
    for (const auto& [screen, source] : screens) {
        if (reached.count(screen) == 0)
            findings.add(source, screen + " can't be reached");
        if (targets.count(screen) == 0)
            findings.add(source, screen + " has no way out");
    }
}

} // namespace menucheck
