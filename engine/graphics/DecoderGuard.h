#pragma once

#include <string_view>

namespace zel {

/// Whether stb_image may be given these bytes. Version 2.27, which Debian 12 has, believes a file
/// in two places where it must not: a Huffman table with more than 256 symbols makes it write past
/// its own one (JPEG), and it makes room for a chunk by the length that the chunk claims, up to 4
/// GB, before it looks how much the file still has (PNG). False for files that hold either of
/// these, and for a JPEG whose side data, such as a colour profile, happen to read like such a
/// table.
bool isSafeToDecode(std::string_view content);

} // namespace zel
