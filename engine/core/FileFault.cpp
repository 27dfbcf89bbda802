#include "engine/core/FileFault.h"

namespace zel {

const char* faultText(FileFault fault) {
    constexpr const char* Texts[FileFaultCount] = {
        "",
        "no space is left on the disk",
        "no permission",
        "it is read-only",
        "the file or its folder is missing",
        "it is not a file",
        "another program is using it",
        "the disk reports an error",
        "its name is too long",
        "the file is too large",
        "too many files are open",
        "it exists already",
        "the system refuses it",
    };
    return Texts[static_cast<int32_t>(fault)];
}

} // namespace zel
