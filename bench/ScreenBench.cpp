// Run on a display. Prints ratios, not times: see RatioReport.h.

#include <cstdio>
#include <vector>

#include <SDL.h>
#include <SDL_opengl.h>
#include <benchmark/benchmark.h>

#include "bench/RatioReport.h"
#include "engine/core/Log.h"
#include "engine/graphics/Canvas.h"
#include "engine/window/Window.h"

namespace {

constexpr int32_t ButtonCount = 24;
constexpr int32_t GlyphsOnButton = 125; // 3000 on the screen

/// A screen of a menu: a background, buttons, and a text on each of them.
struct Screen {
    zel::Bitmap background;
    zel::Bitmap button;
    zel::Bitmap page; // of a font
    std::vector<zel::Quad> text;

    Screen() {
        fill(background, 1024, 768);
        fill(button, 200, 60);
        fill(page, 256, 256);
        for (int32_t glyph = 0; glyph < GlyphsOnButton; ++glyph)
            text.push_back({cell(glyph % 32, glyph / 32, 8, 16), cell(glyph % 25, glyph / 25, 7, 9),
                            0xFF203040});
    }

    static zel::Rect cell(int32_t column, int32_t row, int32_t width, int32_t height) {
        return {static_cast<float>(column * width), static_cast<float>(row * height), 8, 16};
    }
    static void fill(zel::Bitmap& bitmap, int32_t width, int32_t height) {
        zel::BitmapData data;
        data.width = data.pictureWidth = width;
        data.height = data.pictureHeight = height;
        data.depth = 4;
        data.pixels.assign(data.rowSize() * static_cast<size_t>(height), 200);
        static_cast<void>(bitmap.assign(std::move(data), "bench"));
    }
    /// Buttons in the order of their names, which isn't that of their positions.
    static zel::Rect buttonPlace(int32_t index) {
        const int32_t place = index * 7 % ButtonCount;
        return {static_cast<float>(place % 4 * 250), static_cast<float>(place / 4 * 100), 200, 60};
    }
};

Screen& screen() {
    static Screen made;
    return made;
}

void drawScreen(benchmark::State& state) {
    zel::Canvas& canvas = zel::Canvas::getInstance();
    for (auto unused : state) {
        static_cast<void>(unused);
        canvas.clearWindow();
        canvas.draw(screen().background, {0, 0, 1024, 768});
        for (int32_t index = 0; index < ButtonCount; ++index) {
            const zel::Rect place = Screen::buttonPlace(index);
            canvas.draw(screen().button, place);
            canvas.draw(screen().page, screen().text, {place.x + 10, place.y + 5});
        }
        canvas.invalidate(); // otherwise the second frame wouldn't be sent at all
        benchmark::DoNotOptimize(canvas.finishFrame());
        glFinish();
    }
    if (canvas.getStateChanges() > 12 || canvas.getDrawCalls() != 3)
        state.SkipWithError("more than 12 changes of state, or 3 calls");
}

void addQuad(std::vector<zel::Vertex>& vertices, const zel::Rect& target, const zel::Rect& source,
             float side) {
    const float left = source.x / side;
    const float right = source.right() / side;
    const float top = 1 - source.y / side;
    const float bottom = 1 - source.bottom() / side;
    vertices.push_back({target.x, target.y, left, top, 32, 48, 64, 255});
    vertices.push_back({target.right(), target.y, right, top, 32, 48, 64, 255});
    vertices.push_back({target.right(), target.bottom(), right, bottom, 32, 48, 64, 255});
    vertices.push_back({target.x, target.bottom(), left, bottom, 32, 48, 64, 255});
}

/// The same corners, ready made.
std::vector<zel::Vertex> vertices() {
    std::vector<zel::Vertex> result;
    addQuad(result, {0, 0, 1024, 768}, {0, 0, 1, 1}, 1);
    for (int32_t index = 0; index < ButtonCount; ++index)
        addQuad(result, Screen::buttonPlace(index), {0, 0, 1, 1}, 1);
    for (int32_t index = 0; index < ButtonCount; ++index) {
        const zel::Rect place = Screen::buttonPlace(index);
        for (const zel::Quad& quad : screen().text)
            addQuad(result,
                    {quad.target.x + place.x + 10, quad.target.y + place.y + 5, quad.target.width,
                     quad.target.height},
                    quad.source, 256);
    }
    return result;
}

GLuint upload(const zel::Bitmap& bitmap) {
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, bitmap.width(), bitmap.height(), 0, GL_RGBA,
                 GL_UNSIGNED_BYTE, bitmap.getData().pixels.data());
    return name;
}

void drawScreenBare(benchmark::State& state) {
    const std::vector<zel::Vertex> corners = vertices();
    const GLuint textures[] = {upload(screen().background), upload(screen().button),
                               upload(screen().page)};
    const GLint firsts[] = {0, 4, 4 + ButtonCount * 4, 4 + ButtonCount * 4 * (1 + GlyphsOnButton)};
    for (auto unused : state) {
        static_cast<void>(unused);
        glDisable(GL_SCISSOR_TEST);
        glClear(GL_COLOR_BUFFER_BIT);
        glEnable(GL_SCISSOR_TEST);
        glVertexPointer(2, GL_FLOAT, sizeof(zel::Vertex), &corners[0].x);
        glTexCoordPointer(2, GL_FLOAT, sizeof(zel::Vertex), &corners[0].u);
        glColorPointer(4, GL_UNSIGNED_BYTE, sizeof(zel::Vertex), &corners[0].red);
        for (size_t run = 0; run < 3; ++run) {
            glBindTexture(GL_TEXTURE_2D, textures[run]);
            glDrawArrays(GL_QUADS, firsts[run], firsts[run + 1] - firsts[run]);
        }
        glFinish();
    }
    glDeleteTextures(3, textures);
}

} // namespace

int main(int argc, char** argv) {
    zel::setConsoleShown(false);
    zel::disableLogging();
    RatioReport report;
    if (!report.takeArguments(argc, argv))
        return 1;
    if (!zel::Window::create(1024, 768, 32)) {
        std::fprintf(stderr, "No window: is there a display?\n");
        return 1;
    }
    zel::Window::current()->setSimulatedResolution(1024, 768, true);
    // The OpenGL library may draw on threads of its own: their time counts as well. Real time would
    // include it too, but on a shared machine that is mostly the time of others.
    benchmark::RegisterBenchmark("screen of 3000 glyphs/ours", drawScreen)->MeasureProcessCPUTime();
    benchmark::RegisterBenchmark("screen of 3000 glyphs/bare", drawScreenBare)
        ->MeasureProcessCPUTime();
    RatioReport::setLimit("screen of 3000 glyphs", 1.3);
    const int result = report.run();
    zel::Window::destroy();
    return result;
}
