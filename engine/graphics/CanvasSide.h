#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <vector>

#include "engine/graphics/Bitmap.h"
#include "engine/graphics/DrawBatch.h"

namespace zel {

/// The OpenGL side of the canvas: textures, and sending a frame's batch. A context is current in
/// every operation except the constructor and release().
class CanvasSide {
public:
    /// Takes over a new context. Sizes in pixels.
    void attach(int32_t windowWidth, int32_t windowHeight);
    /// Frees all textures.
    void detach();
    bool isAttached() const { return attached; }
    int32_t getMaximumTextureSize() const { return maximumTextureSize; }
    bool takesAnyTextureSize() const { return anyTextureSize; }

    /// The number of the bitmap's texture, made if need be; 0 if there is none. A picture of twice
    /// the size that the graphics card refuses becomes the plain one.
    uint32_t textureOf(const Bitmap& bitmap);
    /// Frees one texture at the next deleteReleased(): a frame that waits to be sent may still show
    /// it. Unknown numbers, of a context that is gone, are ignored.
    void release(uint32_t number);
    /// REQUIRES: no frame waits to be sent.
    void deleteReleased();

    /// Draws the batch on a black window. It isn't shown yet.
    void send(const DrawBatch& batch);
    /// See Canvas::readPixels().
    std::vector<uint8_t> readPixels() const;

    int32_t getStateChanges() const { return stateChanges; } // of the last send()
    int32_t getDrawCalls() const { return drawCalls; }

private:
    void readDriver();
    uint32_t newTexture() const;
    uint32_t makeTexture(const Bitmap& bitmap);
    uint32_t upload(const BitmapData& data);
    void makeWhite();
    void clearWindow();
    void setArrays(const DrawBatch& batch);
    void apply(const DrawKey& key);
    bool bind(uint32_t number);

    bool attached = false;
    int32_t width = 0;
    int32_t height = 0;
    int32_t maximumTextureSize = 0;
    bool anyTextureSize = false; // not only powers of two
    int32_t edges = 0;       // OpenGL's wrap mode, which repeats nothing beyond a texture's edges
    uint32_t generation = 0; // of the context
    // OpenGL's names by our numbers. A number is never used twice, so that one of an earlier
    // context can't refer to a texture of this one.
    std::map<uint32_t, uint32_t> textures;
    std::vector<uint32_t> released; // numbers of textures that wait for deleteReleased()
    uint32_t lastNumber = 0;

    // The state of the context.
    uint32_t boundNumber = 0;
    uint32_t blend = 0;
    std::array<int32_t, 4> clip{};
    bool clipping = false;

    std::vector<Vertex> vertices; // of a frame, run after run
    int32_t stateChanges = 0;
    int32_t drawCalls = 0;
};

} // namespace zel
