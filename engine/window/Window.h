#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"
#include "engine/core/System.h"
#include "engine/window/Timer.h"

struct SDL_Surface;

namespace zel {

class Bitmap;

/// Where a picture of the design's size lies in a window, scaled alike in both directions.
struct Letterbox {
    float scale = 1;
    float offsetX = 0;      // pixels from the left, whole
    float offsetY = 0;      // pixels from the top, whole
    bool barsAtTop = false; // else at the sides, or nowhere
};
/// `centre` false puts the picture at the upper left corner. REQUIRES: sizes above 0.
Letterbox letterbox(int32_t width, int32_t height, int32_t designWidth, int32_t designHeight,
                    bool centre);

/// The size of a window that was wanted in the first size and has the second one as its room: the
/// first, or the largest whole size of its shape that fits. Room of 0 and below is unknown.
system::Extent fittingSize(system::Extent wanted, system::Extent room);

/// Which pixels of an icon show: a bit each, the first in the highest, rows from the top, filled up
/// to whole bytes. A pixel shows from half of full alpha on.
std::vector<uint8_t> iconMask(const Bitmap& picture);

/// The one window with its OpenGL context. It maps a fixed design size onto whatever size it has,
/// with black bars.
///
/// Without a window everything goes on: drawing does nothing, and design pixels are window pixels.
class Window {
public:
    /// Opens the window; a width or height of 0 takes the desktop's. A window that would reach
    /// beyond the desktop or behind its bars comes smaller, in the same shape. On error: log lines,
    /// false, and no window.
    [[nodiscard]] static bool create(int32_t width, int32_t height, int32_t depth,
                                     bool fullscreen = false);
    static Window* current() { return currentWindow; } // null without one
    static void destroy();

    /// The picture of the window in lists and bars, 32 by 32 pixels. It counts for windows opened
    /// after it. On error (another size): a log line, and the system's own picture.
    static void setIcon(const Bitmap& picture);

    /// Shows what was drawn since the last call, then waits until the next frame is due: 15 ms
    /// after the last one, 50 ms if the window hasn't the keyboard or is minimised. It first takes
    /// the events that wait. A picture that is the same as the one shown is drawn again only once a
    /// second, in case the system spoilt the window without a word.
    void swapBuffers();
    /// Whether frames wait until they are due; so they do at first.
    void setPaced(bool isPaced) { paced = isPaced; }
    /// Takes the events that wait. True once the player closed the window or a signal came.
    static bool pollQuit();
    void setTitle(const String& title);

    /// The design's size, or the real one as long as no design is set.
    int32_t getWidth() const { return simulated ? simulatedWidth : width; }
    int32_t getHeight() const { return simulated ? simulatedHeight : height; }
    int32_t getRealWidth() const { return width; }
    int32_t getRealHeight() const { return height; }

    /// From here on screens work in pixels of a design of that size. Sizes below 1 are ignored.
    void setSimulatedResolution(int32_t designWidth, int32_t designHeight, bool centre);
    /// From window pixels to design pixels.
    float toDesignX(int32_t x) const;
    float toDesignY(int32_t y) const;

    bool isFullscreen() const { return fullscreen; }
    /// Full screen in the desktop's size, and back to the size before. On error: log lines, and a
    /// window of the size before.
    void setFullscreen(bool wanted);
    /// Called after the keys Alt+Enter have switched, with what the window is then. Null for
    /// nobody.
    using FullscreenListener = void (*)(bool isFullscreen);
    static void setFullscreenListener(FullscreenListener listener);
    static void tellFullscreenListener();
    /// Follows the size that the player gave the window.
    void resize(int32_t newWidth, int32_t newHeight);
    /// The system has spoilt the window's content: the next frame is drawn in any case.
    void invalidate();

    // What SDL_GetAppState tells; all true without a window.
    static bool hasMouseFocus();
    static bool hasInputFocus();
    static bool isActive(); // not minimised

    /// Opens the address in the player's browser. Only "http://" is followed. On error: a log line.
    static void openUrl(const String& address);
    /// Opens addresses in place of the player's browser, for tests; null gives them back to it.
    /// Answers whether the address could be opened.
    using Browser = bool (*)(const String& address);
    static void setBrowser(Browser newBrowser) { browser = newBrowser; }

private:
    Window() = default;
    ~Window();
    bool setMode(int32_t newWidth, int32_t newHeight, bool newFullscreen);
    void layOut();
    void pace();

    Timer timer; // since the last frame, shown or not
    Timer sinceShown;
    int32_t width = 0;
    int32_t height = 0;
    int32_t depth = 32;
    bool fullscreen = false;
    bool paced = true;
    uint32_t videoFlags = 0;
    SDL_Surface* surface = nullptr;
    bool simulated = false;
    int32_t simulatedWidth = 0;
    int32_t simulatedHeight = 0;
    bool centred = true;
    int32_t windowedWidth = 0; // to come back from full screen
    int32_t windowedHeight = 0;

    static Window* currentWindow;
    static FullscreenListener fullscreenListener;
    static Browser browser;
};

} // namespace zel
