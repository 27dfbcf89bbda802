#include <cstdio>

#include <SDL.h> // where SDL provides main itself, it renames ours

#include "app/mission/Settings.h"
#include "app/screens/ZelAppInfo.h"
#include "engine/core/Directory.h"
#include "engine/core/Log.h"
#include "engine/core/Printable.h"
#include "engine/core/System.h"
#include "engine/core/SystemFiles.h"
#include "engine/core/UserDirectory.h"
#include "engine/window/Platform.h"
#include "engine/window/ZelLoop.h"

namespace {

/// Changes to the folder of the program's files if it was started elsewhere, for example from a
/// menu or a shortcut.
void enterRunDirectory() {
    if (zel::system::fileStatus("Menus\\init.lst").exists)
        return;
    if (const zel::String folder = zel::findRunDirectory(); !folder.empty())
        zel::system::changeDirectory(folder);
}

/// Also writes the log to a file, since players usually see no console.
void keepLog() {
    zel::setApplicationTitle(ZelAppInfo::getAppName());
    const zel::String folder = zel::getUserDirectory();
    const bool hasFolder = zel::Directory::create(folder);
    zel::startLogFile((hasFolder ? folder : zel::String()) + "wingtally.log");
    if (!hasFolder)
        zel::log("Nothing can be kept: there is no folder " + folder, "Wingtally", zel::LogError);
}

} // namespace

int main(int /*argc*/, char** /*argv*/) {
    zel::system::beginProgram();
    if (!zel::system::hasTerminals())
        keepLog();
    if (const zel::String problem = zel::system::applicationDataProblem(); !problem.empty()) {
        std::fprintf(stderr, "wingtally: %s\n", zel::printable(problem).c_str());
        return 1;
    }
    zel::Platform::getInstance();
    noteStartFolder();
    enterRunDirectory();
    while (zel::ZelLoop().run()) {
    }
    return 0;
}
