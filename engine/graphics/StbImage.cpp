// The one place in which the decoder is compiled.
#include <cstdlib>

#include "engine/graphics/Bitmap.h"

#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_MAX_DIMENSIONS (zel::MaxPictureSide)
// Cleared: a damaged file makes the decoder use tables that it never filled.
#define STBI_MALLOC(size) std::calloc(1, size)
#define STBI_REALLOC(block, size) std::realloc(block, size)
#define STBI_FREE(block) std::free(block)
// A damaged file must not end the program, whatever the build.
#define STBI_ASSERT(holds) static_cast<void>(0)
#define STB_IMAGE_IMPLEMENTATION
#include <stb_image.h>
