#pragma once

#include <cstdint>
#include <vector>

#include "engine/core/String.h"
#include "engine/core/System.h"
#include "engine/window/Timer.h"

struct SDL_Surface;

namespace zel {

class Bitmap;

/// The position of a picture of the design's size in a window, scaled equally in both directions.
struct Letterbox {
    float scale = 1;        // window pixels per design pixel
    float offsetX = 0;      // pixels from the left, whole
    float offsetY = 0;      // pixels from the top, whole
    bool barsAtTop = false; // otherwise at the sides, if any
};
/// Without `centre` the picture is in the upper left corner. REQUIRES: sizes above 0.
Letterbox letterbox(int32_t width, int32_t height, int32_t designWidth, int32_t designHeight,
                    bool centre);

/// The wanted size of a window, or the largest size of the same shape, in whole pixels, that fits
/// the room. A room of 0 or less counts as unknown.
system::Extent fittingSize(system::Extent wanted, system::Extent room);

/// The visible pixels of an icon: one bit each, the first in the highest, rows from the top, padded
/// to whole bytes. A pixel is visible from half of full alpha on.
std::vector<uint8_t> iconMask(const Bitmap& picture);

/// The window with its OpenGL context. It maps a fixed design size onto its own size, with black
/// bars.
///
/// Without a window everything goes on: drawing does nothing, and design pixels are window pixels.
class Window {
public:
    /// Opens the window; a width or height of 0 takes the desktop's. A window that would extend
    /// past the desktop or under its bars is made smaller, in the same shape. depth: bits a pixel.
    /// On error: log lines, false, and no window.
    [[nodiscard]] static bool create(int32_t width, int32_t height, int32_t depth,
                                     bool fullscreen = false);
    static Window* current() { return currentWindow; } // null without one
    static void destroy();                             // without a window it does nothing

    /// The window's icon, 32 by 32 pixels. It applies to windows opened later. On error (another
    /// size): a log line, and the system's own icon.
    static void setIcon(const Bitmap& picture);

    /// Drains the event queue and shows what was drawn since the last call, then waits until the
    /// next frame is due: 15 ms after the last one, 50 ms without keyboard focus or minimised. A
    /// picture equal to the one shown is drawn again only once a second, in case the system has
    /// damaged the window without notice.
    void swapBuffers();
    /// Whether frames wait until they are due; initially they do.
    void setPaced(bool isPaced) { paced = isPaced; }
    /// Drains the event queue. True once the player closed the window or a signal came.
    static bool pollQuit();
    void setTitle(const String& title);

    /// The design's size, or the real one until a design is set.
    int32_t getWidth() const { return simulated ? simulatedWidth : width; }
    int32_t getHeight() const { return simulated ? simulatedHeight : height; }
    int32_t getRealWidth() const { return width; }
    int32_t getRealHeight() const { return height; }

    /// Sets the design's size; screens work in its pixels. Sizes below 1 are ignored.
    void setSimulatedResolution(int32_t designWidth, int32_t designHeight, bool centre);
    /// Convert window pixels to design pixels.
    float toDesignX(int32_t x) const;
    float toDesignY(int32_t y) const;

    bool isFullscreen() const { return fullscreen; }
    /// Full screen in the desktop's size, and back to the previous size. On error: log lines, and a
    /// window of the previous size.
    void setFullscreen(bool wanted);
    /// Called after Alt+Enter has switched, with the new state. Null for none.
    using FullscreenListener = void (*)(bool isFullscreen);
    static void setFullscreenListener(FullscreenListener listener);
    static void notifyFullscreenListener();
    /// Adapts to the size that the player gave the window.
    void resize(int32_t newWidth, int32_t newHeight);
    /// The system has damaged the window's content: the next frame is drawn in any case.
    void invalidate();

    // From SDL_GetAppState; all true without a window.
    static bool hasMouseFocus();
    static bool hasInputFocus();
    static bool isActive(); // not minimised

    /// Opens the address in the player's browser. Only "http://" is accepted. On error: a log line.
    static void openUrl(const String& address);
    /// Opens a file that the program has written, such as a page, in the player's browser. On
    /// error: false and a log line. REQUIRES: the path is absolute.
    static bool openFile(const String& path);
    /// Replaces the player's browser, for tests; null restores it. Returns whether the address
    /// could be opened.
    using Browser = bool (*)(const String& address);
    static void setBrowser(Browser newBrowser) { browser = newBrowser; }

private:
    Window() = default;
    ~Window();
    bool setMode(int32_t newWidth, int32_t newHeight, bool newFullscreen);
    void layOut();
    void pace();
    static bool open(const String& target);

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
    int32_t windowedWidth = 0; // to return to from full screen
    int32_t windowedHeight = 0;

    static Window* currentWindow;
    static FullscreenListener fullscreenListener;
    static Browser browser;
};

} // namespace zel
