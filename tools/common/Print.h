#pragma once

#include <cstdio>
#include <string_view>

#include "engine/core/Printable.h"

namespace tools {

/// Writes the text in a form that is safe for a terminal. All output of a program goes through
/// here, because most of it contains names of files, pilots and the like.
inline void print(std::FILE* stream, std::string_view text) {
    std::fputs(zel::printable(text).c_str(), stream);
}

} // namespace tools
