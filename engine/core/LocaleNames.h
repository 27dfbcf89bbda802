#pragma once

#include <cstdint>
#include <string_view>

namespace zel {

/// Windows' identifier of a locale, for the locale's POSIX name such as "de_AT.UTF-8@euro". An
/// unknown country counts as the language's first one; 0 for an unknown language, "C", "POSIX" and
/// the empty name.
uint32_t localeIdentifier(std::string_view posixName);

} // namespace zel
