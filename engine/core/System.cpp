#include "engine/core/System.h"

namespace zel {

String findRunDirectory() {
    const String program = system::executableDirectory();
    // "." works even where the current folder's path can't be named.
    const String candidates[] = {system::currentDirectory(), ".", program, program + "\\..\\run",
                                 program + "\\..\\share\\wingtally"};
    for (const String& candidate : candidates)
        if (system::isDirectory(candidate + "\\Data\\Historical"))
            return candidate;
    return {};
}

} // namespace zel
