#pragma once

#include <cstdint>

namespace zel {

/// Why an operation on a file failed.
enum class FileFault : int32_t {
    None,
    NoSpace,
    NoPermission,
    ReadOnly,    // the file or the whole disk
    Missing,     // the file, or a folder in its path
    NotAFile,    // a folder or a device has the name
    Held,        // another program has it open or locked
    DiskError,   // the disk couldn't read or write
    NameTooLong, // or its links lead in a circle
    TooLarge,
    TooManyOpen, // files, of this program or of all
    Exists,      // where only a new file was wanted
    Other,
};
constexpr int32_t FileFaultCount = static_cast<int32_t>(FileFault::Other) + 1;

/// The reason as the end of an English sentence: "no space is left on the disk"; empty for None.
const char* faultText(FileFault fault);

} // namespace zel
