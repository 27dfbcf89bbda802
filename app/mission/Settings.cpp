#include "app/mission/Settings.h"

#include <cstdio>

#include "app/mission/Configuration.h"
#include "engine/core/Directory.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"

namespace {

constexpr const char* FileName = "wtysettings.ini";

struct Start {
    zel::String folder;
    zel::String simulator; // named by the settings there, from the root
};

Start& start() {
    static Start instance;
    return instance;
}

zel::String startFile() { return start().folder + "\\" + FileName; }

/// Reads the settings of the current folder, which is the start folder. A relative folder in them
/// is relative to it.
void readStartFolder() {
    Configuration::load(FileName);
    const zel::String simulator = Configuration::get(SimulatorKey, "");
    start().simulator = simulator.empty() ? simulator : zel::system::absolutePath(simulator);
}

bool canWriteHere() {
    FILE* trial = zel::system::openFile(FileName, "ab");
    if (trial == nullptr)
        return false;
    std::fclose(trial);
    return zel::system::removeFile(FileName);
}

} // namespace

void noteStartFolder() {
    start().folder = zel::system::currentDirectory();
    readStartFolder();
}

void loadSettings() {
    Configuration::load(zel::getUserDirectory() + FileName);
    Configuration::load(FileName);
    if (start().folder.empty())
        return;
    Configuration::load(startFile());
    if (!start().simulator.empty())
        Configuration::set(SimulatorKey, start().simulator);
}

void reloadSettings() {
    Configuration::reset();
    const zel::String here = zel::system::currentDirectory();
    start().simulator = {}; // the folder may be gone
    if (!start().folder.empty() && zel::system::changeDirectory(start().folder)) {
        readStartFolder();
        zel::system::changeDirectory(here);
    }
    loadSettings();
}

std::vector<zel::String> settingsFiles() {
    std::vector<zel::String> files;
    if (!start().folder.empty())
        files.push_back(startFile());
    files.push_back(zel::system::absolutePath(FileName));
    files.push_back(zel::getUserDirectory() + FileName);
    return files;
}

zel::String settingsFileToWrite() {
    if (!start().folder.empty() && zel::system::fileStatus(startFile()).exists)
        return zel::system::absolutePath(startFile());
    const bool isBesideProgram =
        zel::system::currentDirectory() == zel::system::executableDirectory();
    if (zel::system::fileStatus(FileName).exists || (isBesideProgram && canWriteHere()))
        return zel::system::absolutePath(FileName);
    zel::Directory::create(zel::getUserDirectory()); // no editor would
    return zel::system::absolutePath(zel::getUserDirectory() + FileName);
}
