#pragma once

#include <string_view>

#include "engine/core/String.h"

/// XXH3's 64 bits of the bytes, in sixteen hexadecimal digits: it finds damage, not forgery.
zel::String checksumOf(std::string_view bytes);
/// Of a whole file; empty if it can't be read.
zel::String checksumOfFile(const zel::String& name);
