#pragma once

#include <cstdint>
#include <string_view>

namespace zel {

/// The identifier by which Windows knows a locale, for the name that POSIX systems give it, such as
/// "de_AT.UTF-8@euro". A country that isn't known counts as the language's first one; 0 for an
/// unknown language, "C", "POSIX" and the empty name.
uint32_t localeIdentifier(std::string_view posixName);

} // namespace zel
