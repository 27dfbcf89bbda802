#include "engine/graphics/Canvas.h"

#include <algorithm>
#include <cmath>

#include "engine/core/Log.h"

namespace zel {

namespace {

constexpr uint32_t AlphaMask = 0xFF000000;
constexpr uint32_t Opaque = 255;

struct Color {
    uint8_t red, green, blue, alpha;
};

Color colorOf(uint32_t argb) {
    return {static_cast<uint8_t>(argb >> 16), static_cast<uint8_t>(argb >> 8),
            static_cast<uint8_t>(argb), static_cast<uint8_t>(argb >> 24)};
}

uint32_t product(uint32_t a, uint32_t b) { return (a * b + 127) / 255; }

uint32_t multiplied(uint32_t first, uint32_t second) {
    uint32_t result = 0;
    for (const uint32_t shift : {0U, 8U, 16U, 24U})
        result |= product(first >> shift & 255, second >> shift & 255) << shift;
    return result;
}

/// Converts pixels of the design, from the upper left of a bitmap's picture, to texture
/// coordinates. The picture's top line is the buffer's last one.
struct TextureMap {
    explicit TextureMap(const Bitmap& bitmap)
        : u(partOf(bitmap, bitmap.getData().width)), v(partOf(bitmap, bitmap.getData().height)) {}
    static float partOf(const Bitmap& bitmap, int32_t side) {
        return static_cast<float>(bitmap.getData().detail) / static_cast<float>(std::max(1, side));
    }
    float u, v;
};

void addQuad(std::vector<Vertex>& vertices, const Rect& target, const Rect& source,
             const TextureMap& map, const Color& color) {
    const float left = source.x * map.u;
    const float right = source.right() * map.u;
    const float top = 1 - source.y * map.v;
    const float bottom = 1 - source.bottom() * map.v;
    const auto& [red, green, blue, alpha] = color;
    const Vertex corners[] = {
        {target.x, target.y, left, top, red, green, blue, alpha},
        {target.right(), target.y, right, top, red, green, blue, alpha},
        {target.right(), target.bottom(), right, bottom, red, green, blue, alpha},
        {target.x, target.bottom(), left, bottom, red, green, blue, alpha},
    };
    vertices.insert(vertices.end(), std::begin(corners), std::end(corners));
}

Rect around(const Corner (&corners)[4]) {
    float left = corners[0].x;
    float right = left;
    float top = corners[0].y;
    float bottom = top;
    for (const Corner& corner : corners) {
        left = std::min(left, corner.x);
        right = std::max(right, corner.x);
        top = std::min(top, corner.y);
        bottom = std::max(bottom, corner.y);
    }
    return {left, top, right - left, bottom - top};
}

Rect around(const std::vector<Quad>& quads) {
    Rect first = quads.front().target;
    float right = first.right();
    float bottom = first.bottom();
    for (const Quad& quad : quads) {
        first.x = std::min(first.x, quad.target.x);
        first.y = std::min(first.y, quad.target.y);
        right = std::max(right, quad.target.right());
        bottom = std::max(bottom, quad.target.bottom());
    }
    return {first.x, first.y, right - first.x, bottom - first.y};
}

void releaseOnCanvas(uint32_t handle) { Canvas::getInstance().releaseTexture(handle); }

} // namespace

// Never destroyed: bitmaps that live as long as the program release their textures through it.
Canvas& Canvas::getInstance() {
    static auto* const canvas = new Canvas;
    return *canvas;
}

Canvas::Canvas() { Bitmap::setTextureRelease(releaseOnCanvas); }

bool Canvas::isAttached() const { return side.isAttached(); }
int32_t Canvas::getMaximumTextureSize() const { return side.getMaximumTextureSize(); }
bool Canvas::takesAnyTextureSize() const { return side.takesAnyTextureSize(); }
int32_t Canvas::getStateChanges() const { return side.getStateChanges(); }
int32_t Canvas::getDrawCalls() const { return side.getDrawCalls(); }
void Canvas::releaseTexture(uint32_t handle) { side.release(handle); }

bool Canvas::isIdle() const { return !side.isAttached() && recorder == nullptr; }

void Canvas::clearWindow() {
    frame.clear();
    side.deleteReleased();
    clips.clear();
    blend = Blend::Normal;
    alpha = Opaque;
    begun = true;
    sent = false;
    if (recorder != nullptr)
        recorder->clear();
}

void Canvas::clear(uint32_t argb) {
    if (isIdle())
        return;
    const Rect design{0, 0, static_cast<float>(scissor.width) / globalScaleX,
                      static_cast<float>(scissor.height) / globalScaleY};
    // Nothing that is covered completely is drawn, nor black on the window's own black.
    const bool covers = shaded(argb) >> 24 == Opaque && blend == Blend::Normal && clips.empty();
    if (covers)
        frame.clear();
    if (covers && (argb & ~AlphaMask) == 0)
        record("fill", {}, design, shaded(argb));
    else
        fill(design, argb);
}

void Canvas::fill(const Rect& target, uint32_t argb) {
    const uint32_t color = shaded(argb);
    if (isIdle() || color >> 24 == 0)
        return;
    record("fill", {}, target, color);
    if (!side.isAttached())
        return;
    static const TextureMap wholePixel{Bitmap()};
    const Rect inWindow = toWindow(target);
    addQuad(run(0, inWindow), inWindow, {0.25F, 0.25F, 0.5F, 0.5F}, wholePixel, colorOf(color));
}

void Canvas::draw(const Bitmap& bitmap, const Rect& target, uint32_t argb) {
    draw(bitmap, {0, 0, static_cast<float>(bitmap.width()), static_cast<float>(bitmap.height())},
         target, argb);
}

void Canvas::draw(const Bitmap& bitmap, const Rect& source, const Rect& target, uint32_t argb) {
    const uint32_t color = shaded(argb);
    if (isIdle() || color >> 24 == 0 || !bitmap.isLoaded())
        return;
    record(bitmap.getName(), source, target, color);
    const uint32_t texture = side.isAttached() ? side.textureOf(bitmap) : 0;
    if (texture == 0)
        return;
    const Rect inWindow = toWindow(target);
    addQuad(run(texture, inWindow), inWindow, source, TextureMap(bitmap), colorOf(color));
}

void Canvas::draw(const Bitmap& bitmap, const Corner (&corners)[4], uint32_t argb) {
    const uint32_t color = shaded(argb);
    if (isIdle() || color >> 24 == 0 || !bitmap.isLoaded())
        return;
    const Corner& first = corners[0];
    const Corner& opposite = corners[2];
    const Rect target = around(corners);
    record(bitmap.getName(), {first.u, first.v, opposite.u - first.u, opposite.v - first.v}, target,
           color);
    const uint32_t texture = side.isAttached() ? side.textureOf(bitmap) : 0;
    if (texture == 0)
        return;
    const TextureMap map(bitmap);
    const Color parts = colorOf(color);
    std::vector<Vertex>& vertices = run(texture, toWindow(target));
    for (const Corner& corner : corners)
        vertices.push_back({corner.x * globalScaleX + globalOffsetX,
                            corner.y * globalScaleY + globalOffsetY, corner.u * map.u,
                            1 - corner.v * map.v, parts.red, parts.green, parts.blue, parts.alpha});
}

void Canvas::draw(const Bitmap& bitmap, const std::vector<Quad>& quads, Point offset,
                  uint32_t tint) {
    const uint32_t shade = shaded(tint);
    if (isIdle() || shade >> 24 == 0 || quads.empty() || !bitmap.isLoaded())
        return;
    const auto moved = [offset](const Rect& target) {
        return Rect{target.x + offset.x, target.y + offset.y, target.width, target.height};
    };
    if (recorder != nullptr)
        for (const Quad& quad : quads)
            record(bitmap.getName(), quad.source, moved(quad.target), multiplied(quad.argb, shade));
    const uint32_t texture = side.isAttached() ? side.textureOf(bitmap) : 0;
    if (texture == 0)
        return;
    const TextureMap map(bitmap);
    std::vector<Vertex>& vertices = run(texture, toWindow(moved(around(quads))));
    vertices.reserve(vertices.size() + quads.size() * 4);
    // Usually all quads have one colour: it is computed again only where it changes.
    uint32_t lastColor = quads.front().argb;
    Color color = colorOf(multiplied(lastColor, shade));
    for (const Quad& quad : quads) {
        if (quad.argb != lastColor) {
            lastColor = quad.argb;
            color = colorOf(multiplied(lastColor, shade));
        }
        addQuad(vertices, toWindow(moved(quad.target)), quad.source, map, color);
    }
}

void Canvas::setAlpha(int32_t newAlpha) { alpha = std::clamp(newAlpha, 0, 255); }

uint32_t Canvas::shaded(uint32_t argb) const {
    return (argb & ~AlphaMask) | product(argb >> 24, static_cast<uint32_t>(alpha)) << 24;
}

void Canvas::pushClip(const Rect& clip) {
    const Rect wanted = toWindow(clip);
    const ClipRect& outer = currentClip();
    const auto whole = [](float value) { return static_cast<int32_t>(std::lround(value)); };
    const int32_t left = std::max(outer.x, whole(wanted.x));
    const int32_t top = std::max(outer.y, whole(wanted.y));
    const int32_t right = std::min(outer.x + outer.width, whole(wanted.right()));
    const int32_t bottom = std::min(outer.y + outer.height, whole(wanted.bottom()));
    clips.push_back({left, top, std::max(0, right - left), std::max(0, bottom - top)});
}

void Canvas::popClip() {
    if (!clips.empty())
        clips.pop_back();
}

const Canvas::ClipRect& Canvas::currentClip() const {
    return clips.empty() ? scissor : clips.back();
}

Rect Canvas::toWindow(const Rect& target) const {
    return {target.x * globalScaleX + globalOffsetX, target.y * globalScaleY + globalOffsetY,
            target.width * globalScaleX, target.height * globalScaleY};
}

void Canvas::record(const String& name, const Rect& source, const Rect& target, uint32_t argb) {
    if (recorder != nullptr)
        recorder->push_back({std::string(name.view()), source, target, argb});
}

std::vector<Vertex>& Canvas::run(uint32_t texture, const Rect& bounds) {
    begun = true;
    sent = false;
    const ClipRect& clip = currentClip();
    return frame.add(
        {texture, static_cast<uint32_t>(blend), clip.x, clip.y, clip.width, clip.height}, bounds);
}

void Canvas::setGlobalScale(float scaleX, float scaleY) {
    // The window is never empty, but a caller's arithmetic may say so.
    globalScaleX = scaleX > 0 ? scaleX : 1;
    globalScaleY = scaleY > 0 ? scaleY : 1;
    log("setGlobalScale " + formatFloat(scaleX) + " " + formatFloat(scaleY), "Canvas", LogInfo);
}

void Canvas::setGlobalOffset(float x, float y) {
    globalOffsetX = x;
    globalOffsetY = y;
    log("setGlobalOffset " + formatFloat(x) + " " + formatFloat(y), "Canvas", LogInfo);
}

void Canvas::setGlobalScissor(int32_t x, int32_t y, int32_t width, int32_t height) {
    scissor = {x, y, width, height};
    log("setGlobalScissor " + String(x) + " " + y + " " + width + " " + height, "Canvas", LogInfo);
}

void Canvas::attach(int32_t windowWidth, int32_t windowHeight) {
    side.attach(windowWidth, windowHeight);
    scissor = {0, 0, windowWidth, windowHeight};
    spoilt = true;
}

void Canvas::detach() {
    side.detach();
    frame.clear();
    shown.clear();
    begun = false;
    globalScaleX = globalScaleY = 1;
    globalOffsetX = globalOffsetY = 0;
}

bool Canvas::finishFrame(bool isSeen) {
    if (!side.isAttached() || !begun)
        return false;
    begun = false;
    isSeen = isSeen && areSeen;
    if (isSeen && !sent && !spoilt && frame == shown)
        return false;
    if (isSeen && !sent) {
        side.send(frame);
        ++framesSent;
    }
    std::swap(frame, shown);
    frame.clear();
    sent = false;
    spoilt = !isSeen;
    return isSeen;
}

bool Canvas::shows(const Bitmap& bitmap) const {
    const uint32_t texture = bitmap.getTexture().handle;
    return texture != 0 && (begun ? frame : shown).shows(texture);
}

void Canvas::invalidate() { spoilt = true; }

std::vector<uint8_t> Canvas::readPixels() {
    if (!side.isAttached())
        return {};
    side.send(begun ? frame : shown);
    if (begun && !sent) {
        sent = true;
        ++framesSent;
    }
    return side.readPixels();
}

} // namespace zel
