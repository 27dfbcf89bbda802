#include "tools/menucheck/FindingLog.h"

#include <algorithm>

#include "engine/core/Log.h"
#include "engine/core/LogPlace.h"
#include "engine/graphics/ImageHandler.h"

namespace menucheck {

namespace {

constexpr std::string_view Missing = "Did not find image "; // and its name

/// A line of the log, and the line of the file that was being read; an empty file name if none was.
struct HeldLine {
    zel::String text;
    Source source;
};

// Log lines that are not attributed yet. Static, since the log's sink is a plain function.
std::vector<HeldLine>& heldLines() {
    static std::vector<HeldLine> lines;
    return lines;
}

/// The message of a log line, without mark, milliseconds, "[category] " and the file and line that
/// it may begin with.
zel::String messageOf(std::string_view line) {
    const size_t start = line.find("] ");
    std::string_view message = start == line.npos ? line : line.substr(start + 2);
    const zel::LogPlace* place = zel::LogPlace::current();
    const zel::String prefix = place != nullptr ? place->prefix() : zel::String();
    if (message.substr(0, prefix.view().size()) == prefix.view())
        message.remove_prefix(prefix.view().size());
    return message;
}

void hold(const zel::String& line) {
    const zel::LogPlace* place = zel::LogPlace::current();
    const Source source = place != nullptr ? Source{place->getFile(), place->getLine()} : Source();
    heldLines().push_back({messageOf(line), source});
}

} // namespace

FindingLog::FindingLog() : wasConsoleShown(zel::isConsoleShown()) {
    heldLines().clear();
    zel::setConsoleShown(false);
    zel::setLogSink(hold);
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

FindingLog::~FindingLog() {
    zel::MenuConfigFile::setLineObserver(nullptr);
    zel::MenuConfigFile::setFaultSink(nullptr);
    zel::setLogSink(nullptr);
    zel::setConsoleShown(wasConsoleShown);
}

/// Whether a finding says what is wrong with the picture of that name.
bool FindingLog::explains(std::string_view picture) const {
    const std::string start = std::string(picture) + " is ";
    return std::any_of(faults.begin(), faults.end(), [&](const auto& fault) {
        return std::get<2>(fault.first).view().substr(0, start.size()) == start;
    });
}

void FindingLog::put(const Source& source, const zel::String& what, bool isWarning) {
    std::string line(what.view()); // a finding is one line
    std::replace_if(
        line.begin(), line.end(),
        [](char character) { return character == '\n' || character == '\r' || character == '\t'; },
        ' ');
    faults.emplace(std::make_tuple(source.file, source.line, zel::String(line)), isWarning);
}

void FindingLog::endLine() {
    zel::ImageHandler::getInstance().getQueue().drain();
    takeLog();
    noteElements();
    running = betweenLines;
}

void FindingLog::setBetweenLines(const Source& source) {
    endLine();
    betweenLines = running = source;
}

void FindingLog::takeLog() {
    for (const HeldLine& line : heldLines())
        add(line.source.file.empty() ? running : line.source, line.text);
    heldLines().clear();
}

void FindingLog::noteElements() {
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

void FindingLog::watch(const zel::Menu* menu) {
    endLine();
    watched = menu;
    elements.clear();
}

Source FindingLog::sourceOf(const zel::String& element) const {
    const auto found = elements.find(element);
    return found != elements.end() ? found->second : betweenLines;
}

tools::Findings FindingLog::sorted() const {
    tools::Findings result;
    for (const auto& [fault, isWarning] : faults) {
        const auto& [file, line, what] = fault;
        const bool isMissing = what.view().substr(0, Missing.size()) == Missing;
        if (isMissing && explains(what.view().substr(Missing.size())))
            continue;
        result.emplace_back(file, line, what);
        result.back().isWarning = isWarning;
    }
    return result;
}

} // namespace menucheck
