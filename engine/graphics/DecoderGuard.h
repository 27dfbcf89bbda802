#pragma once

#include <string_view>

namespace zel {

/// Whether stb_image may be given these bytes. Version 2.27, which Debian 12 has, trusts a file in
/// two places where it must not: it writes past its own Huffman table if a JPEG's has more than 256
/// symbols, and it allocates a PNG chunk by the length that the chunk claims, up to 4 GB, before it
/// checks the rest of the file. False for files with either of these, and for a JPEG whose other
/// data, such as a colour profile, happen to look like such a table.
bool isSafeToDecode(std::string_view content);

} // namespace zel
