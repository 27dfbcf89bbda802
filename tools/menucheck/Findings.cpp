#include "tools/menucheck/Findings.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/graphics/ImageHandler.h"

namespace menucheck {

namespace {

// Lines of the log that nobody has taken yet; the log's sink has no object of its own.
std::vector<zel::String>& heldLines() {
    static std::vector<zel::String> lines;
    return lines;
}

} // namespace

Findings::Findings() : wasConsoleShown(zel::isConsoleShown()) {
    heldLines().clear();
    zel::setConsoleShown(false);
    zel::setLogSink([](const zel::String& line) { heldLines().push_back(line); });
    zel::setLogLevel(zel::LogWarning);
    zel::MenuConfigFile::setFaultSink([this](const zel::ScriptFault& fault) {
        add({fault.file, fault.line.toInt()}, fault.text);
    });
    zel::MenuConfigFile::setLineObserver(
        [this](const zel::MenuConfigFile& script, const zel::MenuConfigFile::Line& line) {
            endLine();
            running = {script.fileOf(line), line.number.toInt()};
        });
}

Findings::~Findings() {
    zel::MenuConfigFile::setLineObserver(nullptr);
    zel::MenuConfigFile::setFaultSink(nullptr);
    zel::setLogSink(nullptr);
    zel::setConsoleShown(wasConsoleShown);
}

void Findings::put(const Source& source, const zel::String& what, bool isWarning) {
    std::string line(what.view()); // one, whatever text it tells of
    std::replace_if(
        line.begin(), line.end(), [](char character) { return character >= 0 && character < ' '; },
        ' ');
    faults.emplace(std::make_tuple(source.file, source.line, zel::String(line)), isWarning);
}

void Findings::endLine() {
    zel::ImageHandler::getInstance().getQueue().drain();
    takeLog();
    noteElements();
    running = betweenLines;
}

void Findings::setBetweenLines(const Source& source) {
    endLine();
    betweenLines = running = source;
}

// Each line of the log reads mark, milliseconds, [category], message.
void Findings::takeLog() {
    for (const zel::String& held : heldLines()) {
        const std::string_view line = held.view();
        const size_t message = line.find("] ");
        add(running, message == line.npos ? line : line.substr(message + 2));
    }
    heldLines().clear();
}

void Findings::noteElements() {
    if (watched == nullptr)
        return;
    const auto& widgets = watched->getWidgets();
    const auto& areas = watched->getTextAreas();
    for (auto element = elements.begin(); element != elements.end();) {
        const bool isThere = widgets.count(element->first) + areas.count(element->first) != 0;
        element = isThere ? std::next(element) : elements.erase(element);
    }
    for (const auto& [name, widget] : widgets)
        elements.emplace(name, running);
    for (const auto& [name, area] : areas)
        elements.emplace(name, running);
}

void Findings::watch(const zel::Menu* menu) {
    endLine();
    watched = menu;
    elements.clear();
}

Source Findings::sourceOf(const zel::String& element) const {
    const auto found = elements.find(element);
    return found != elements.end() ? found->second : betweenLines;
}

Faults Findings::sorted() const {
    Faults result;
    for (const auto& [fault, isWarning] : faults)
        result.push_back({std::get<0>(fault), std::get<1>(fault), std::get<2>(fault), isWarning});
    return result;
}

} // namespace menucheck
