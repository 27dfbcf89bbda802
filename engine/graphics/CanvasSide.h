#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <vector>

#include "engine/graphics/Bitmap.h"
#include "engine/graphics/DrawBatch.h"

namespace zel {

/// OpenGL's side of the canvas: textures, and the sending of a frame's batch. A context is current
/// in every operation but the construction and release().
class CanvasSide {
public:
    /// Takes over a fresh context. Sizes in pixels.
    void attach(int32_t windowWidth, int32_t windowHeight);
    /// Gives all textures back.
    void detach();
    bool isAttached() const { return attached; }
    int32_t getMaximumTextureSize() const { return maximumTextureSize; }

    /// The number of the bitmap's texture, made if need be; 0 if there can be none.
    uint32_t textureOf(const Bitmap& bitmap);
    /// Gives one texture back, at the next deleteReleased(): a frame that waits to be sent may
    /// still show it. Unknown numbers are of a context that is no more.
    void release(uint32_t number);
    /// REQUIRES: no frame waits.
    void deleteReleased();

    void send(const DrawBatch& batch);
    std::vector<uint8_t> readPixels() const;

    int32_t getStateChanges() const { return stateChanges; } // of the last send()
    int32_t getDrawCalls() const { return drawCalls; }

private:
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
    uint32_t generation = 0; // of the context
    // OpenGL's names by our numbers, which are never given twice: so nothing that belongs to a
    // context that is gone can hit a texture of this one.
    std::map<uint32_t, uint32_t> textures;
    std::vector<uint32_t> released; // numbers of textures that wait for deleteReleased()
    uint32_t lastNumber = 0;

    // What the context is set to.
    uint32_t boundNumber = 0;
    uint32_t blend = 0;
    std::array<int32_t, 4> clip{};
    bool clipping = false;

    std::vector<Vertex> vertices; // of a frame, run behind run
    int32_t stateChanges = 0;
    int32_t drawCalls = 0;
};

} // namespace zel
