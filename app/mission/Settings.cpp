#include "app/mission/Settings.h"

#include "app/mission/Configuration.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"

namespace {

constexpr const char* FileName = "wtysettings.ini";
constexpr const char* SimulatorKey = "rof.directory";

struct Start {
    zel::String folder;
    zel::String simulator; // named by the settings there, from the root
};

Start& start() {
    static Start instance;
    return instance;
}

} // namespace

void noteStartFolder() {
    start().folder = zel::system::currentDirectory();
    Configuration::load(FileName);
    const zel::String simulator = Configuration::get(SimulatorKey, "");
    start().simulator = simulator.empty() ? simulator : zel::system::absolutePath(simulator);
}

void loadSettings() {
    Configuration::load(zel::getUserDirectory() + FileName);
    Configuration::load(FileName);
    if (start().folder.empty())
        return;
    Configuration::load(start().folder + "\\" + FileName);
    if (!start().simulator.empty())
        Configuration::set(SimulatorKey, start().simulator);
}

zel::String settingsFileToWrite() {
    const bool isBesideProgram =
        zel::system::currentDirectory() == zel::system::executableDirectory();
    if (isBesideProgram || zel::system::fileStatus(FileName).exists)
        return zel::system::absolutePath(FileName);
    return zel::system::absolutePath(zel::getUserDirectory() + FileName);
}
