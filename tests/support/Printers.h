#pragma once

#include <ostream>

#include "engine/core/String.h"

namespace zel {

/// Lets GoogleTest show a text as such.
inline void PrintTo(const String& text, std::ostream* out) { // NOLINT: GoogleTest's own name
    *out << '"' << text.c_str() << '"';
}

} // namespace zel
