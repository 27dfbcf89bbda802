#include "app/career/EntireFile.h"

#include "engine/core/File.h"
#include "engine/core/Log.h"

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
    while (file.hasLine())
        lines.emplace_back(file.lineView());
    return !file.hasFailed();
}

bool EntireFile::saveFile(const zel::String& name) const {
    zel::File file(name, zel::FileWrite);
    for (const zel::String& line : lines) {
        file.write(line.c_str(), line.length());
        file.write("\r\n", 2);
    }
    file.close();
    return !file.hasFailed();
}
