#include "engine/graphics/CanvasSide.h"

#include <algorithm>
#include <cstddef>

#include <SDL_opengl.h>

#include "engine/core/Log.h"
#include "engine/graphics/Canvas.h"

namespace zel {

namespace {

constexpr uint32_t White = 0; // number of the texture of a single white pixel
// Versions of OpenGL: 102 is 1.2.
constexpr int32_t VersionOfAnySize = 200; // from which textures may have any sides
constexpr int32_t VersionOfEdges = 102;   // from which they may end at their own edges

GLenum pixelFormat(const BitmapData& data) {
    if (data.order == ChannelOrder::Rgb)
        return data.depth == 4 ? GL_RGBA : GL_RGB;
    return data.depth == 4 ? GL_BGRA : GL_BGR;
}

/// Repeats the picture's lower and right edge by one pixel into the rest of the buffer, if there is
/// one: otherwise an enlarged picture would show the rest at its edges.
void repeatEdges(const BitmapData& data) {
    const GLenum format = pixelFormat(data);
    const int32_t below = data.height - data.pictureHeight - 1; // row 0 is the bottom line
    if (below >= 0)
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, below, data.pictureWidth, 1, format, GL_UNSIGNED_BYTE,
                        data.line(data.pictureHeight - 1));
    if (data.pictureWidth == data.width)
        return;
    const auto depth = static_cast<size_t>(data.depth);
    const int32_t start = std::max(0, below);
    std::vector<uint8_t> column; // from that row up, corner included
    for (int32_t row = start; row < data.height; ++row) {
        const int32_t y = std::min(data.height - 1 - row, data.pictureHeight - 1);
        const uint8_t* last = data.line(y) + (static_cast<size_t>(data.pictureWidth) - 1) * depth;
        column.insert(column.end(), last, last + depth);
    }
    glTexSubImage2D(GL_TEXTURE_2D, 0, data.pictureWidth, start, 1, data.height - start, format,
                    GL_UNSIGNED_BYTE, column.data());
}

/// The address of a member of the first vertex, as OpenGL takes it.
const void* at(const std::vector<Vertex>& vertices, size_t offset) {
    return reinterpret_cast<const uint8_t*>(vertices.data()) + offset;
}

/// A string from the driver: players' logs show a slow renderer such as "GDI Generic".
String driverText(GLenum name) { return reinterpret_cast<const char*>(glGetString(name)); }

/// The version in a text such as "1.2.1 Mesa", as 102.
int32_t versionOf(const String& text) {
    const std::string_view digits = text.view();
    const size_t dot = std::min(digits.find('.'), digits.size() - 1);
    return toInt(digits) * 100 + toInt(digits.substr(dot + 1));
}

} // namespace

void CanvasSide::attach(int32_t windowWidth, int32_t windowHeight) {
    attached = true;
    width = windowWidth;
    height = windowHeight;
    ++generation;
    blend = static_cast<uint32_t>(Blend::Normal);
    clipping = false;
    clip = {};
    readDriver();
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, width, height, 0, -1, 1); // window pixels, y down
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glDisable(GL_LIGHTING);
    glDisable(GL_SCISSOR_TEST);
    glEnable(GL_TEXTURE_2D);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glClearColor(0, 0, 0, 1);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    makeWhite();
}

void CanvasSide::readDriver() {
    GLint reported = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &reported);
    maximumTextureSize = reported;
    const int32_t version = versionOf(driverText(GL_VERSION));
    anyTextureSize = version >= VersionOfAnySize;
    edges = version >= VersionOfEdges ? GL_CLAMP_TO_EDGE : GL_CLAMP;
    log("Maximum texture size: " + String(maximumTextureSize), "Canvas", LogInfo);
    log("OpenGL of " + driverText(GL_VENDOR) + ", renderer " + driverText(GL_RENDERER) +
            ", version " + driverText(GL_VERSION),
        "Canvas", LogInfo);
    if (version < VersionOfEdges)
        log("OpenGL is older than 1.2, as without the driver of a graphics card: pictures may have "
            "faint edges",
            "Canvas", LogWarning);
}

uint32_t CanvasSide::newTexture() const {
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, edges);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, edges);
    return name;
}

void CanvasSide::detach() {
    if (!attached)
        return;
    for (const auto& [number, name] : textures)
        glDeleteTextures(1, &name);
    textures.clear();
    released.clear();
    attached = anyTextureSize = false;
    maximumTextureSize = 0;
}

void CanvasSide::makeWhite() {
    static constexpr uint8_t Pixel[] = {255, 255, 255, 255};
    textures[White] = newTexture();
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 1, 1, 0, GL_RGBA, GL_UNSIGNED_BYTE, Pixel);
    boundNumber = White;
}

uint32_t CanvasSide::textureOf(const Bitmap& bitmap) {
    const Bitmap::Texture& texture = bitmap.getTexture();
    if (texture.handle != 0 && texture.generation == generation)
        return texture.handle;
    if (!bitmap.isLoaded() || texture.refusedIn == generation)
        return 0;
    if (bitmap.isAsleep())
        bitmap.refresh();
    if (bitmap.getData().pixels.empty())
        return 0;
    bitmap.textureLost();
    uint32_t number = makeTexture(bitmap);
    if (number == 0 && bitmap.makePlain())
        number = makeTexture(bitmap);
    if (number == 0)
        bitmap.refuseTexture(generation);
    else
        bitmap.textureMade(number, generation);
    return number;
}

/// The texture's number. On error: 0 and a log line.
uint32_t CanvasSide::makeTexture(const Bitmap& bitmap) {
    const BitmapData& data = bitmap.getData();
    uint32_t number = 0;
    if (data.depth != 3 && data.depth != 4) {
        log("Bitmap: illegal depth", "Bitmap", LogError);
        log("Illegal depth: " + String(data.depth), "Bitmap", LogError);
    } else if (std::max(data.width, data.height) > maximumTextureSize) {
        log(bitmap.getName() + " is too large for this graphics card: " + data.width + " x " +
                data.height,
            "Bitmap", LogError);
    } else {
        number = upload(data);
        if (number == 0)
            log("No graphics memory for " + bitmap.getName(), "Bitmap", LogError);
    }
    return number;
}

uint32_t CanvasSide::upload(const BitmapData& data) {
    const GLuint name = newTexture();
    // Clears older errors, which aren't this picture's. A lost context may report them forever.
    for (int32_t i = 0; i < 16 && glGetError() != GL_NO_ERROR; ++i) {
    }
    boundNumber = lastNumber + 1;
    glTexImage2D(GL_TEXTURE_2D, 0, data.depth == 4 ? GL_RGBA8 : GL_RGB8, data.width, data.height, 0,
                 pixelFormat(data), GL_UNSIGNED_BYTE, data.pixels.data());
    repeatEdges(data);
    if (glGetError() != GL_NO_ERROR) {
        glDeleteTextures(1, &name);
        return 0;
    }
    textures[++lastNumber] = name;
    return lastNumber;
}

void CanvasSide::release(uint32_t number) {
    if (number != White && textures.count(number) != 0)
        released.push_back(number);
}

void CanvasSide::deleteReleased() {
    for (const uint32_t number : released) {
        glDeleteTextures(1, &textures[number]);
        textures.erase(number);
    }
    released.clear();
}

void CanvasSide::send(const DrawBatch& batch) {
    stateChanges = 0;
    drawCalls = 0;
    clearWindow();
    if (batch.empty())
        return;
    setArrays(batch);
    GLint first = 0;
    for (size_t index = 0; index < batch.size(); ++index) {
        const DrawBatch::Run& run = batch[index];
        const auto count = static_cast<GLsizei>(run.vertices.size());
        if (count > 0 && bind(run.key.texture)) {
            apply(run.key);
            glDrawArrays(GL_QUADS, first, count);
            ++drawCalls;
        }
        first += count;
    }
}

// The bars as well: after a swap their content is undefined.
void CanvasSide::clearWindow() {
    if (clipping) {
        glDisable(GL_SCISSOR_TEST);
        ++stateChanges;
    }
    clipping = false;
    glClear(GL_COLOR_BUFFER_BIT);
}

void CanvasSide::setArrays(const DrawBatch& batch) {
    vertices.clear();
    for (size_t index = 0; index < batch.size(); ++index)
        vertices.insert(vertices.end(), batch[index].vertices.begin(), batch[index].vertices.end());
    glVertexPointer(2, GL_FLOAT, sizeof(Vertex), at(vertices, offsetof(Vertex, x)));
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), at(vertices, offsetof(Vertex, u)));
    glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(Vertex), at(vertices, offsetof(Vertex, red)));
    stateChanges += 3;
}

bool CanvasSide::bind(uint32_t number) {
    if (number == boundNumber && textures.count(number) != 0)
        return true;
    const auto found = textures.find(number);
    if (found == textures.end())
        return false; // of a frame that is shown again, freed since
    glBindTexture(GL_TEXTURE_2D, found->second);
    boundNumber = number;
    ++stateChanges;
    return true;
}

void CanvasSide::apply(const DrawKey& key) {
    if (key.blend != blend) {
        blend = key.blend;
        const bool adds = blend == static_cast<uint32_t>(Blend::Additive);
        glBlendFunc(GL_SRC_ALPHA, adds ? GL_ONE : GL_ONE_MINUS_SRC_ALPHA);
        ++stateChanges;
    }
    if (!clipping) {
        glEnable(GL_SCISSOR_TEST);
        clipping = true;
        ++stateChanges;
    }
    const std::array<int32_t, 4> wanted{key.clipX, height - key.clipY - key.clipHeight,
                                        key.clipWidth, key.clipHeight};
    if (wanted != clip) {
        clip = wanted;
        glScissor(clip[0], clip[1], clip[2], clip[3]);
        ++stateChanges;
    }
}

std::vector<uint8_t> CanvasSide::readPixels() const {
    const auto rowSize = static_cast<size_t>(width) * 3;
    std::vector<uint8_t> bottomUp(rowSize * static_cast<size_t>(height));
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, bottomUp.data());
    std::vector<uint8_t> pixels(bottomUp.size());
    for (size_t row = 0; row < static_cast<size_t>(height); ++row)
        std::copy_n(bottomUp.data() + row * rowSize, rowSize,
                    pixels.data() + pixels.size() - (row + 1) * rowSize);
    return pixels;
}

} // namespace zel
