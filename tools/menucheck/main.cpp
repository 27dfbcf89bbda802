#include <cstdio>
#include <string_view>

#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "tools/menucheck/MenuCheck.h"

namespace {

constexpr const char* Usage =
    "Usage: wingtally-menucheck [FOLDER]\n"
    "Runs every screen's script in FOLDER, which holds Menus/init.lst, without a window; without\n"
    "FOLDER, those that the program itself would use. Prints each fault as file:line: what is\n"
    "wrong.\n"
    "Exit status: 0 no fault or warnings only, 1 faults, 2 a wrong call or no screens.\n";

} // namespace

int main(int argc, char** argv) {
    const std::string_view argument = argc > 1 ? argv[1] : "";
    const bool isHelp = argument == "--help" || argument == "-h";
    if (argc > 2 || isHelp || (!argument.empty() && argument.front() == '-')) {
        std::fputs(Usage, isHelp ? stdout : stderr);
        return isHelp ? 0 : 2;
    }
    zel::setConsoleShown(false);
    zel::system::setEnvironment("SDL_AUDIODRIVER", "dummy"); // sounds are loaded, never played
    const zel::String folder = argument.empty() ? zel::findRunDirectory() : zel::String(argument);
    if (folder.empty() || !zel::system::fileStatus(folder + "/Menus/init.lst").exists) {
        std::fprintf(stderr, "wingtally-menucheck: no Menus/init.lst in %s\n",
                     folder.empty() ? "the places where the program looks" : folder.c_str());
        return 2;
    }
    const menucheck::Faults faults = menucheck::checkMenus(folder);
    bool hasFault = false;
    for (const menucheck::Fault& fault : faults) {
        std::printf("%s:%d: %s%s\n", fault.file.c_str(), static_cast<int>(fault.line),
                    fault.isWarning ? "warning: " : "", fault.what.c_str());
        hasFault = hasFault || !fault.isWarning;
    }
    return hasFault ? 1 : 0;
}
