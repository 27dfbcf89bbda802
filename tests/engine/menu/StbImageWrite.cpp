// The writer of pictures, for tests alone.
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include <stb_image_write.h>
