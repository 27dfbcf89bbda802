#include "engine/core/System.h"

namespace zel {

String findRunDirectory() {
    const String program = system::executableDirectory();
    const String candidates[] = {system::currentDirectory(), program, program + "\\..\\run",
                                 program + "\\..\\share\\wingtally"};
    for (const String& candidate : candidates)
        if (system::isDirectory(candidate + "\\Data\\Historical"))
            return candidate;
    return {};
}

} // namespace zel
