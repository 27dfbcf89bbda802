#include "engine/core/UserDirectory.h"

#include "engine/core/System.h"

namespace zel {

namespace {

String& title() {
    static String value;
    return value;
}

String& chosenDirectory() {
    static String value;
    return value;
}

} // namespace

void setApplicationTitle(const String& newTitle) { title() = newTitle; }
String applicationTitle() { return title(); }
void setUserDirectory(const String& path) { chosenDirectory() = path; }

String getUserDirectory() {
    if (!chosenDirectory().empty())
        return chosenDirectory() + "\\";
    return system::applicationDataDirectory() + "\\" + title() + "\\";
}

} // namespace zel
