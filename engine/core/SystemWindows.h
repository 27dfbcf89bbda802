#pragma once

#include <string>
#include <string_view>
#include <windows.h>

/// What the sources of the Windows side share.
namespace zel::system {

/// Converts from that code page; empty if `flags` refuse the text.
std::wstring widened(std::string_view text, UINT page, DWORD flags = 0);
/// Converts to that code page, with "?" for characters that it lacks rather than similar ones: no
/// file is found by that. `isWhole` returns whether no character was lacking.
std::string narrowed(const std::wstring& wide, UINT page, bool& isWhole);

} // namespace zel::system
