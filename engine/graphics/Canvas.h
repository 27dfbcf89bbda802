#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/graphics/CanvasSide.h"
#include "engine/graphics/Rect.h"

namespace zel {

/// How a picture is mixed with what is drawn already: over it, or added to it.
enum class Blend : uint8_t { Normal, Additive };

/// A point in design pixels, from the top left.
struct Point {
    float x;
    float y;
};

/// A corner of a drawn picture: its position in design pixels, and the point of the bitmap's
/// picture that is drawn there, in pixels of the design from the top left.
struct Corner {
    float x, y;
    float u, v;
};

/// One rectangle of a bitmap, to be drawn into a rectangle of the design.
struct Quad {
    Rect source;   // of the picture, in pixels of the design
    Rect target;   // design pixels
    uint32_t argb; // multiplied with the picture's colours; 0xFFFFFFFF leaves them
};

/// The engine's drawing surface: design pixels, y down, colours as 0xAARRGGBB.
///
/// It exists whether there is a window or not. Without one, every drawing call returns at once, so
/// callers need not check. With one, the calls of a frame are collected; those of the same texture
/// are joined where the order of overlapping ones allows it, and all are sent when the window shows
/// the frame: each run of a texture costs one draw call. A frame equal to the one before isn't sent
/// at all.
class Canvas {
public:
    static Canvas& getInstance();

    /// Begins a frame: what was drawn before is dropped, and the whole window, bars included, is
    /// black.
    void clearWindow();
    /// Fills the design's rectangle. With an alpha below 255 it is blended over what is there.
    void clear(uint32_t argb);
    /// Fills a rectangle (design pixels).
    void fill(const Rect& target, uint32_t argb);
    /// The whole picture, or a part of it, stretched into the target. A bitmap without pixels
    /// draws nothing, here and below.
    void draw(const Bitmap& bitmap, const Rect& target, uint32_t argb = 0xFFFFFFFF);
    void draw(const Bitmap& bitmap, const Rect& source, const Rect& target,
              uint32_t argb = 0xFFFFFFFF);
    /// For turned and mirrored pictures; the corners in order around the edge.
    void draw(const Bitmap& bitmap, const Corner (&corners)[4], uint32_t argb = 0xFFFFFFFF);
    /// Many parts of one bitmap at once, moved by `offset`, their colours multiplied with `tint`.
    void draw(const Bitmap& bitmap, const std::vector<Quad>& quads, Point offset = {0, 0},
              uint32_t tint = 0xFFFFFFFF);

    /// For everything drawn from now on; Normal at the start of a frame.
    void setBlend(Blend newBlend) { blend = newBlend; }
    /// The alpha of everything drawn from now on, 0 to 255; 255 at the start of a frame.
    void setAlpha(int32_t newAlpha);
    int32_t getAlpha() const { return alpha; }
    /// Clips to the rectangle (design pixels) and to all those pushed before.
    void pushClip(const Rect& clip);
    void popClip(); // without effect when there is none

    /// The factors from design pixels to window pixels; the window sets them.
    void setGlobalScale(float scaleX, float scaleY);
    void setGlobalOffset(float x, float y);
    /// Window pixels, y down.
    void setGlobalScissor(int32_t x, int32_t y, int32_t width, int32_t height);
    float getGlobalScaleX() const { return globalScaleX; }
    float getGlobalScaleY() const { return globalScaleY; }
    float getGlobalOffsetX() const { return globalOffsetX; }
    float getGlobalOffsetY() const { return globalOffsetY; }

    // For the window. An OpenGL context is current in all of them.
    void attach(int32_t windowWidth, int32_t windowHeight);
    void detach(); // frees all textures; they are made again when drawn again
    /// Releases a bitmap's texture.
    void releaseTexture(uint32_t handle);
    /// Whether the current frame, or between two frames the one shown last, has the bitmap in it.
    bool shows(const Bitmap& bitmap) const;
    bool isAttached() const;
    int32_t getMaximumTextureSize() const; // 0 without a window
    /// Whether the sides of a texture may be other than powers of two; false without a window.
    bool takesAnyTextureSize() const;
    /// Sends the frame if it differs from the one shown last. Returns whether there is something to
    /// show. One that nobody sees, as in a minimised window, isn't sent.
    bool finishFrame(bool isSeen = true);
    /// For tests, which would spend most of their time drawing: whether frames are seen at all. If
    /// not, nothing but readPixels() draws.
    void setSeen(bool seen) { areSeen = seen; }
    /// The next frame is sent in any case.
    void invalidate();
    /// The window as drawn so far, three bytes a pixel (R, G, B), top line first; empty without a
    /// window.
    std::vector<uint8_t> readPixels();

    /// Counts of the last frame that was sent.
    int32_t getStateChanges() const;
    int32_t getDrawCalls() const;
    /// Frames sent since the start.
    int32_t getFramesSent() const { return framesSent; }

    /// One drawing call, for tests: "fill" or the bitmap's name, source, target (design pixels; the
    /// bounding rectangle of a turned picture), colour with the alpha applied.
    struct DrawRecord {
        std::string name;
        Rect source;
        Rect target;
        uint32_t argb;
    };
    /// Appends every call to the list, with or without a window; clearWindow() empties it. Null
    /// ends the recording.
    void setRecorder(std::vector<DrawRecord>* list) { recorder = list; }

private:
    struct ClipRect {
        int32_t x, y, width, height; // window pixels
    };

    Canvas();
    ~Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    bool isIdle() const;
    /// The colour with the alpha applied; an alpha of 0 means that nothing is drawn.
    uint32_t shaded(uint32_t argb) const;
    const ClipRect& currentClip() const;
    Rect toWindow(const Rect& target) const;
    void record(const String& name, const Rect& source, const Rect& target, uint32_t argb);
    std::vector<Vertex>& run(uint32_t texture, const Rect& bounds);

    CanvasSide side;
    DrawBatch frame; // what has been drawn since the frame began
    DrawBatch shown; // what the window shows
    bool begun = false;
    bool sent = false;   // the frame has been sent already
    bool spoilt = true;  // the window's content is unknown
    bool areSeen = true; // frames, see setSeen()
    std::vector<ClipRect> clips;
    ClipRect scissor{0, 0, 1024, 768}; // window pixels; without a window the design's size
    Blend blend = Blend::Normal;
    int32_t alpha = 255;
    float globalScaleX = 1;
    float globalScaleY = 1;
    float globalOffsetX = 0;
    float globalOffsetY = 0;
    int32_t framesSent = 0;
    std::vector<DrawRecord>* recorder = nullptr;
};

} // namespace zel
