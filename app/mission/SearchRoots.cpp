#include "app/mission/SearchRoots.h"

#include "app/mission/Configuration.h"
#include "engine/core/System.h"

namespace {

constexpr const char* SteamKey = "SOFTWARE\\Wow6432Node\\Valve\\Steam";
constexpr const char* SteamValueName = "InstallPath";

} // namespace

SearchRoots SearchRoots::ofSystem() {
    SearchRoots roots;
    if (const zel::String chosen = Configuration::get(SimulatorKey, ""); !chosen.empty())
        roots.lastTime = zel::system::absolutePath(chosen);
    roots.registry = Configuration::installedDirectory();
    roots.steam = zel::system::queryRegistryValue(SteamKey, SteamValueName);
    roots.home = zel::system::homeDirectory();
    roots.winePrefix = zel::system::environment("WINEPREFIX");
    roots.addsLocalDrives = true; // one that doesn't answer would hold up this thread
    return roots;
}
