#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "app/mission/MissionGenerator.h"

/// Puts a text into the generator as if it had been loaded: without empty lines.
inline void setLines(MissionGenerator& generator, const std::string& text) {
    generator.lines.lines.clear();
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        if (!line.empty())
            generator.lines.lines.emplace_back(line);
}

/// The generator's lines as a text.
inline std::string textOf(const MissionGenerator& generator) {
    std::string text;
    for (const zel::String& line : generator.lines.lines)
        text += std::string(line.view()) + "\n";
    return text;
}

/// The values after "key = " in a mission's text, in order, up to the end of the line.
inline std::vector<std::string> valuesOf(const std::string& text, const std::string& key) {
    std::vector<std::string> values;
    std::istringstream stream(text);
    const std::string start = "  " + key + " = ";
    for (std::string line; std::getline(stream, line);)
        if (line.rfind(start, 0) == 0)
            values.push_back(line.substr(start.size(), line.find(';') - start.size()));
    return values;
}
