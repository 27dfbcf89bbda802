#include <cstdio>
#include <string>

#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "tools/common/CommandLine.h"
#include "tools/common/Print.h"
#include "tools/menucheck/MenuCheck.h"

namespace {

constexpr const char* Program = "wingtally-menucheck";
constexpr const char* Description =
    R"(Runs the script of every screen in FOLDER, which holds Menus/init.lst, without a window;
without FOLDER, those that the game itself uses. Prints each finding as file:line: what is
wrong.)";
constexpr const char* Ending =
    "Exit status: 0 no findings or warnings only, 1 findings, 2 invalid arguments or no screens.";

int run(const std::string& chosen) {
    zel::setConsoleShown(false);
    zel::system::setEnvironment("SDL_AUDIODRIVER", "dummy"); // sounds are loaded, never played
    const zel::String folder = chosen.empty() ? zel::findRunDirectory() : zel::String(chosen);
    if (folder.empty() || !zel::system::fileStatus(folder + "/Menus/init.lst").exists) {
        tools::print(stderr, zel::String(Program) + ": no Menus/init.lst in " +
                                 (folder.empty() ? "the places where the game looks" : folder) +
                                 "\n");
        return 2;
    }
    return tools::printFindings(menucheck::checkMenus(folder), stdout);
}

} // namespace

int main(int argc, char** argv) {
    std::string folder;
    tools::CommandLine line(Program, "[FOLDER]", Description, Ending);
    line.addOption("FOLDER", folder).nameOfFile();
    const std::optional<int> status = tools::answer(line.read(tools::argumentsOf(argc, argv)));
    return status ? *status : tools::exitStatus(run(folder));
}
