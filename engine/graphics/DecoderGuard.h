#pragma once

#include <string_view>

namespace zel {

/// Whether stb_image may be given these bytes. Version 2.27, which Debian 12 has, trusts a file in
/// places where it must not: it writes past the tables of a JPEG, and allocates what a PNG asks for
/// before it looks how much there is. Such files are told apart here; no sound picture is affected.
bool isSafeToDecode(std::string_view content);

} // namespace zel
