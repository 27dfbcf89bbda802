#include "engine/core/Registry.h"
#include "engine/core/UserDirectory.h"
#include "fuzz/FuzzFile.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const FuzzFolder folder;
    zel::setApplicationTitle("Wingtally");
    zel::setUserDirectory(folder.path);
    folder.write("prefs.dat", data, size);
    zel::Registry::reset();
    const zel::String before = zel::Registry::get("mapWestern", "unset");
    // A seventh of the inputs: writing is far slower than reading.
    if (size % 7 == 0) {
        zel::Registry::set("fuzz", "1");
        zel::Registry::reset();
        require(zel::Registry::get("fuzz", "") == "1", "what was set is there after a restart");
        require(zel::Registry::get("mapWestern", "unset") == before, "and so is the rest");
    }
    return 0;
}
