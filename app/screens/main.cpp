#include <SDL.h> // where SDL starts the program itself, it does so under a main of its own

#include "app/mission/Settings.h"
#include "app/screens/ZelAppInfo.h"
#include "engine/core/Directory.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/UserDirectory.h"
#include "engine/window/Platform.h"
#include "engine/window/ZelLoop.h"

namespace {

/// Goes where the program's files are, if it was started elsewhere, as from a menu or by a
/// shortcut.
void enterRunDirectory() {
    if (zel::system::fileStatus("Menus\\init.lst").exists)
        return;
    if (const zel::String folder = zel::findRunDirectory(); !folder.empty())
        zel::system::changeDirectory(folder);
}

/// Where nobody sees the program's words they can be read afterwards.
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
    if (!zel::system::hasTerminals())
        keepLog();
    zel::Platform::getInstance();
    noteStartFolder();
    enterRunDirectory();
    while (zel::ZelLoop().run()) {
    }
    return 0;
}
