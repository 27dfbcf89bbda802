#include "tools/menucheck/Findings.h"

#include "engine/core/Log.h"
#include "engine/graphics/ImageHandler.h"

namespace menucheck {

Findings::Findings() : log(std::tmpfile()), wasConsoleShown(zel::isConsoleShown()) {
    zel::setConsoleShown(false);
    zel::setLogStream(log);
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
    zel::setLogStream(stdout);
    zel::setConsoleShown(wasConsoleShown);
    std::fclose(log);
}

void Findings::add(const Source& source, const zel::String& what) {
    faults.insert({{source.file, source.line}, what});
}

void Findings::endLine() {
    zel::ImageHandler::getInstance().getQueue().drain();
    takeLog();
    noteElements();
    running = betweenLines;
}

void Findings::setBetweenLines(const zel::String& file) {
    endLine();
    betweenLines = running = {file, 0};
}

// Each line of the log reads mark, milliseconds, [category], message.
void Findings::takeLog() {
    std::fflush(log);
    std::string text(static_cast<size_t>(std::ftell(log)), '\0');
    std::rewind(log);
    text.resize(std::fread(text.data(), 1, text.size(), log));
    std::rewind(log);
    std::string_view rest = text;
    while (!rest.empty()) {
        const size_t end = std::min(rest.find('\n'), rest.size() - 1);
        const std::string_view line = rest.substr(0, end);
        const size_t message = line.find("] ");
        add(running, message == std::string_view::npos ? line : line.substr(message + 2));
        rest.remove_prefix(end + 1);
    }
}

void Findings::noteElements() {
    if (watched == nullptr)
        return;
    for (const auto& [name, widget] : watched->getWidgets())
        elements.emplace(name, running);
    for (const auto& [name, area] : watched->getTextAreas())
        elements.emplace(name, running);
}

void Findings::watch(const zel::Menu* menu) {
    endLine();
    watched = menu;
    elements.clear();
}

Source Findings::sourceOf(const zel::String& element) const {
    const auto found = elements.find(element);
    return found != elements.end() ? found->second : Source{};
}

Faults Findings::sorted() const {
    Faults result;
    for (const auto& [place, what] : faults)
        result.push_back({place.first, place.second, what});
    return result;
}

} // namespace menucheck
