#include "app/career/EntireFile.h"

#include <algorithm>
#include <string>

#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/WholeFile.h"

namespace {

constexpr size_t BytesPerLine = 64; // about as in the simulator's logs

// At least twice the room before: otherwise each piece of a long log would move all lines again.
void makeRoom(std::vector<zel::String>& lines, size_t more) {
    if (lines.size() + more > lines.capacity())
        lines.reserve(std::max(lines.size() + more, 2 * lines.capacity()));
}

} // namespace

bool EntireFile::loadFile(const zel::String& name) {
    if (zel::isLogged("EntireFile", zel::LogInfo))
        zel::log("loadFile " + name, "EntireFile", zel::LogInfo);
    fileName = name;
    lines.clear();
    return appendFile(name);
}

bool EntireFile::appendFile(const zel::String& name) {
    if (zel::isLogged("EntireFile", zel::LogInfo))
        zel::log("appendFile " + name, "EntireFile", zel::LogInfo);
    zel::File file(name, zel::FileRead);
    if (file.hasFailed())
        return false;
    const size_t before = lines.size();
    makeRoom(lines, static_cast<size_t>(file.fileSize()) / BytesPerLine + 1);
    while (file.hasLine())
        lines.emplace_back(file.lineView());
    if (file.hasFailed())
        lines.erase(lines.begin() + static_cast<ptrdiff_t>(before), lines.end());
    return !file.hasFailed();
}

bool EntireFile::saveFile(const zel::String& name) const {
    return writeFile(name) == zel::FileFault::None;
}

zel::FileFault EntireFile::writeFile(const zel::String& name) const {
    std::string content;
    for (const zel::String& line : lines) {
        content += line.view();
        content += "\r\n";
    }
    return zel::writeFileWhole(name, content);
}
