#include "engine/window/Window.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <SDL.h>

#include "engine/core/Clock.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/graphics/Bitmap.h"
#include "engine/graphics/Canvas.h"
#include "engine/window/Platform.h"
#include "engine/window/ZelLoop.h"

namespace zel {

namespace {

constexpr const char* WindowCategory = "Window";
constexpr uint32_t FramePeriod = 15;     // milliseconds; shorter than a picture of a 60 Hz display
constexpr uint32_t IdleFramePeriod = 50; // without keyboard focus, and minimised
constexpr uint32_t RepeatPeriod = 1000;  // of an unchanged picture
constexpr int32_t IconSide = 32;         // the only size that Windows takes

void setAttributes(bool demanding) {
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, demanding ? 8 : 5);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, demanding ? 8 : 6);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, demanding ? 8 : 5);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
    SDL_GL_SetAttribute(SDL_GL_SWAP_CONTROL, demanding ? 1 : 0);
}

bool isWebAddress(const String& address) { return address.view().substr(0, 7) == "http://"; }

/// The display reports a window's old size once more while it takes the new one: following that
/// would make the window flicker between sizes. Reports of any other size stay in the queue.
void dropResizesTo(int32_t width, int32_t height) {
    SDL_PumpEvents();
    SDL_Event reports[16];
    const int count = SDL_PeepEvents(reports, 16, SDL_GETEVENT, SDL_VIDEORESIZEMASK);
    for (int index = 0; index < count; ++index)
        if (reports[index].resize.w != width || reports[index].resize.h != height)
            SDL_PushEvent(&reports[index]);
}

bool hasState(int32_t bit) { return (Platform::getInstance().appState() & bit) != 0; }

} // namespace

Window* Window::currentWindow = nullptr;
Window::FullscreenListener Window::fullscreenListener = nullptr;
Window::Browser Window::browser = nullptr;

Letterbox letterbox(int32_t width, int32_t height, int32_t designWidth, int32_t designHeight,
                    bool centre) {
    const float ratioX = static_cast<float>(width) / static_cast<float>(designWidth);
    const float ratioY = static_cast<float>(height) / static_cast<float>(designHeight);
    Letterbox box;
    box.barsAtTop = ratioY > ratioX;
    box.scale = std::min(ratioX, ratioY);
    if (!centre)
        return box;
    const float remainsX = static_cast<float>(width) - static_cast<float>(designWidth) * box.scale;
    const float remainsY =
        static_cast<float>(height) - static_cast<float>(designHeight) * box.scale;
    if (box.barsAtTop)
        box.offsetY = std::ceil(remainsY * 0.5F);
    else
        box.offsetX = std::ceil(remainsX * 0.5F);
    return box;
}

system::Extent fittingSize(system::Extent wanted, system::Extent room) {
    if (room.width <= 0 || room.height <= 0 || wanted.width <= 0 || wanted.height <= 0)
        return wanted;
    const int32_t most = std::gcd(wanted.width, wanted.height); // steps of the shape, as 4 by 3
    const system::Extent step{wanted.width / most, wanted.height / most};
    const int32_t steps = std::min(room.width / step.width, room.height / step.height);
    return steps < 1 || steps >= most ? wanted
                                      : system::Extent{step.width * steps, step.height * steps};
}

std::vector<uint8_t> iconMask(const Bitmap& picture) {
    const auto rowSize = static_cast<size_t>(picture.width() + 7) / 8;
    std::vector<uint8_t> mask(rowSize * static_cast<size_t>(picture.height()));
    for (int32_t y = 0; y < picture.height(); ++y)
        for (int32_t x = 0; x < picture.width(); ++x)
            if (picture.pixelAt(x, y) >> 31 != 0)
                mask[y * rowSize + x / 8] |= static_cast<uint8_t>(0x80 >> x % 8);
    return mask;
}

bool Window::create(int32_t width, int32_t height, int32_t depth, bool fullscreen) {
    const Platform& platform = Platform::getInstance();
    destroy();
    if (SDL_WasInit(SDL_INIT_VIDEO) == 0) // Platform has logged why, and SDL would crash
        return false;
    auto* window = new Window;
    window->depth = depth <= 16 ? 16 : 32;
    const system::Extent desktop{platform.getDesktopWidth(), platform.getDesktopHeight()};
    system::Extent size{width, height};
    if (width <= 0 || height <= 0)
        size = desktop;
    else if (!fullscreen)
        size = fittingSize(size, system::roomForWindow(desktop));
    window->windowedWidth = size.width;
    window->windowedHeight = size.height;
    if (!window->setMode(size.width, size.height, fullscreen)) {
        delete window;
        return false;
    }
    currentWindow = window;
    system::setEnvironment("SDL_VIDEO_CENTERED", ""); // see Platform
    return true;
}

void Window::setIcon(const Bitmap& picture) {
    Platform::getInstance();
    if (SDL_WasInit(SDL_INIT_VIDEO) == 0) // SDL itself would crash
        return;
    if (picture.width() != IconSide || picture.height() != IconSide) {
        log("Icon " + picture.getName() + " is not 32 by 32 pixels", WindowCategory, LogWarning);
        return;
    }
    uint32_t pixels[IconSide * IconSide];
    for (int32_t y = 0; y < IconSide; ++y)
        picture.getData().lineArgb(y, pixels + static_cast<ptrdiff_t>(y) * IconSide);
    SDL_Surface* icon = SDL_CreateRGBSurfaceFrom(pixels, IconSide, IconSide, 32, IconSide * 4,
                                                 0xFF0000, 0xFF00, 0xFF, 0);
    if (icon == nullptr)
        return;
    std::vector<uint8_t> mask = iconMask(picture);
    SDL_WM_SetIcon(icon, mask.data());
    SDL_FreeSurface(icon);
}

void Window::destroy() {
    delete currentWindow;
    currentWindow = nullptr;
}

// SDL keeps the window on the screen until the next one or its own end; closing the display in
// between would lose the connection to it.
Window::~Window() {
    Canvas::getInstance().detach();
    if (surface != nullptr)
        log("closing window", WindowCategory, LogInfo);
}

bool Window::setMode(int32_t newWidth, int32_t newHeight, bool newFullscreen) {
    Canvas::getInstance().detach();
    const SDL_Surface* old = SDL_GetVideoSurface();
    const int32_t oldWidth = old != nullptr ? old->w : 0;
    const int32_t oldHeight = old != nullptr ? old->h : 0;
    const SDL_VideoInfo* info = SDL_GetVideoInfo();
    videoFlags = SDL_OPENGL | SDL_DOUBLEBUF;
    if (info != nullptr && info->hw_available != 0)
        videoFlags |= SDL_HWSURFACE;
    videoFlags |= newFullscreen ? SDL_FULLSCREEN : SDL_RESIZABLE;
    surface = nullptr;
    for (const bool demanding : {true, false}) {
        setAttributes(demanding);
        surface = SDL_SetVideoMode(newWidth, newHeight, depth, videoFlags);
        if (surface != nullptr)
            break;
    }
    if (surface == nullptr) {
        log("SDL_SetVideoMode failed", WindowCategory, LogError);
        log(SDL_GetError(), WindowCategory, LogError);
        return false;
    }
    width = std::max(1, surface->w); // full screen may have another size
    height = std::max(1, surface->h);
    fullscreen = newFullscreen;
    if (oldWidth != width || oldHeight != height)
        dropResizesTo(oldWidth, oldHeight);
    Canvas::getInstance().attach(width, height);
    layOut();
    return true;
}

void Window::resize(int32_t newWidth, int32_t newHeight) {
    if (fullscreen || (newWidth == width && newHeight == height))
        return;
    const int32_t oldWidth = width;
    const int32_t oldHeight = height;
    if (setMode(newWidth, newHeight, false)) {
        windowedWidth = width;
        windowedHeight = height;
    } else if (!setMode(oldWidth, oldHeight, false)) {
        ZelLoop::quit(); // an invisible program must not go on
    }
}

void Window::setFullscreen(bool wanted) {
    if (wanted == fullscreen)
        return;
    Platform& platform = Platform::getInstance();
    const bool hasDesktop = platform.getDesktopWidth() > 0 && platform.getDesktopHeight() > 0;
    const int32_t newWidth = wanted && hasDesktop ? platform.getDesktopWidth() : windowedWidth;
    const int32_t newHeight = wanted && hasDesktop ? platform.getDesktopHeight() : windowedHeight;
    if (!setMode(newWidth, newHeight, wanted) && !setMode(windowedWidth, windowedHeight, false))
        ZelLoop::quit();
    platform.releaseKeys();
}

void Window::setFullscreenListener(FullscreenListener listener) { fullscreenListener = listener; }

void Window::notifyFullscreenListener() {
    if (currentWindow != nullptr && fullscreenListener != nullptr)
        fullscreenListener(currentWindow->isFullscreen());
}

void Window::setSimulatedResolution(int32_t designWidth, int32_t designHeight, bool centre) {
    if (designWidth < 1 || designHeight < 1)
        return;
    simulated = true;
    simulatedWidth = designWidth;
    simulatedHeight = designHeight;
    centred = centre;
    layOut();
}

void Window::layOut() {
    Canvas& canvas = Canvas::getInstance();
    if (!simulated) {
        canvas.setGlobalScale(1, 1);
        canvas.setGlobalOffset(0, 0);
        canvas.setGlobalScissor(0, 0, width, height);
        return;
    }
    const Letterbox box = letterbox(width, height, simulatedWidth, simulatedHeight, centred);
    const auto number = [](float value) { return formatFloat(value); };
    const auto design = [](int32_t size, float scale) { return static_cast<float>(size) * scale; };
    log(box.barsAtTop ? "Horizontal black lines, top and bottom black border"
                      : "Vertical black lines, left and right black border",
        WindowCategory, LogInfo);
    canvas.setGlobalScale(box.scale, box.scale);
    canvas.setGlobalOffset(box.offsetX, box.offsetY);
    canvas.setGlobalScissor(static_cast<int32_t>(box.offsetX), static_cast<int32_t>(box.offsetY),
                            static_cast<int32_t>(std::lround(design(simulatedWidth, box.scale))),
                            static_cast<int32_t>(std::lround(design(simulatedHeight, box.scale))));
    const float ratioX = static_cast<float>(width) / static_cast<float>(simulatedWidth);
    const float ratioY = static_cast<float>(height) / static_cast<float>(simulatedHeight);
    const float remainsX = (static_cast<float>(width) - design(simulatedWidth, ratioY)) * 0.5F;
    const float remainsY = (static_cast<float>(height) - design(simulatedHeight, ratioX)) * 0.5F;
    log(String("height: ") + height + " ; width: " + width, WindowCategory, LogInfo);
    log(String("simulated height: ") + simulatedHeight + " ; simulated width: " + simulatedWidth,
        WindowCategory, LogInfo);
    log("ratioHeight: " + number(ratioY) + " ; horizontal remains: " + number(remainsX),
        WindowCategory, LogInfo);
    log("Offset from left: " + number(box.offsetX) + " ; vertical remains: " + number(remainsY),
        WindowCategory, LogInfo);
    log("Offset from top: " + number(box.offsetY), WindowCategory, LogInfo);
}

float Window::toDesignX(int32_t x) const {
    const Canvas& canvas = Canvas::getInstance();
    const auto pixel = static_cast<float>(x);
    return simulated ? (pixel - canvas.getGlobalOffsetX()) / canvas.getGlobalScaleX() : pixel;
}

float Window::toDesignY(int32_t y) const {
    const Canvas& canvas = Canvas::getInstance();
    const auto pixel = static_cast<float>(y);
    return simulated ? (pixel - canvas.getGlobalOffsetY()) / canvas.getGlobalScaleY() : pixel;
}

void Window::swapBuffers() {
    Platform::getInstance().handleEvents();
    Canvas& canvas = Canvas::getInstance();
    if (sinceShown.getTicks() >= RepeatPeriod)
        canvas.invalidate();
    if (canvas.finishFrame(isActive())) {
        SDL_GL_SwapBuffers();
        sinceShown.reset();
    }
    pace();
}

void Window::pace() {
    const uint32_t period = hasInputFocus() && isActive() ? FramePeriod : IdleFramePeriod;
    const uint32_t passed = timer.getTicks();
    if (paced && passed < period)
        wait(period - passed);
    timer.reset();
}

bool Window::pollQuit() {
    Platform& platform = Platform::getInstance();
    platform.handleEvents();
    return platform.getQuitEvents() != 0;
}

void Window::setTitle(const String& title) { SDL_WM_SetCaption(title.c_str(), nullptr); }

void Window::invalidate() { Canvas::getInstance().invalidate(); }

bool Window::hasMouseFocus() { return hasState(SDL_APPMOUSEFOCUS); }
bool Window::hasInputFocus() { return hasState(SDL_APPINPUTFOCUS); }
bool Window::isActive() { return hasState(SDL_APPACTIVE); }

bool Window::open(const String& target) {
    const bool isOpen = browser != nullptr ? browser(target) : system::openBrowser(target);
    if (!isOpen)
        log("Cannot open " + target, WindowCategory, LogWarning);
    return isOpen;
}

void Window::openUrl(const String& address) {
    if (!isWebAddress(address))
        log("Not a web address: " + address, WindowCategory, LogWarning);
    else
        open(address);
}

bool Window::openFile(const String& path) { return open(path); }

} // namespace zel
