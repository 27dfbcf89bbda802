#pragma once

#include <cstdio>
#include <string_view>

#include "engine/core/Printable.h"

namespace tools {

/// Writes the text as it is safe for a terminal. What a program prints goes through here, because
/// names of files, pilots and the like are in most of it.
inline void print(std::FILE* stream, std::string_view text) {
    std::fputs(zel::printable(text).c_str(), stream);
}

} // namespace tools
