#include "app/career/UnrecordedSaves.h"

#include <string>

#include "app/career/Checksum.h"
#include "engine/core/File.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/WholeFile.h"

namespace {

constexpr size_t MostNotes = 200; // after the newest: more than a career has pages

/// The noted checksums, one to a line, the newest first. Empty if there is no such file.
std::string notes(const zel::String& save) {
    std::string text;
    static_cast<void>(zel::readFileWhole(save + UnrecordedEnding, text));
    return text;
}

} // namespace

zel::FileFault noteUnrecorded(const zel::String& save, const CheckedBytes& content) {
    const std::string line = std::string(content.checksum().view()) + "\n";
    std::string before = notes(save);
    if (const size_t same = before.find(line); same != before.npos)
        before.erase(same, line.size());
    const std::string text = line + before.substr(0, MostNotes * line.size());
    const zel::String path = save + UnrecordedEnding;
    const zel::FileFault fault = zel::writeFileWhole(path, text);
    if (fault != zel::FileFault::None)
        zel::log("The checksum of the save can't be noted in " + path + ": " +
                     zel::faultText(fault),
                 "Database", zel::LogWarning);
    return fault;
}

bool isUnrecorded(const zel::String& save, const CheckedBytes& content) {
    const std::string noted = notes(save);
    return !noted.empty() && noted.find(content.checksum().view()) != std::string::npos;
}
