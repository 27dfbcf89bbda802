#include "engine/window/Platform.h"

#include <algorithm>
#include <csignal>
#include <string_view>

#include <SDL.h>

#include "engine/core/Clock.h"
#include "engine/core/Log.h"
#include "engine/core/System.h"
#include "engine/core/TextEncoding.h"
#include "engine/core/UserDirectory.h"
#include "engine/window/Window.h"

namespace zel {

namespace {

constexpr int32_t MostQuitEvents = 127;
constexpr size_t MostTypedKeys = 64;
constexpr int32_t WheelUp = 4;
constexpr int32_t WheelDown = 5;
constexpr int32_t AllAppStates = SDL_APPMOUSEFOCUS | SDL_APPINPUTFOCUS | SDL_APPACTIVE;
// After a longer pause between frames, earlier input isn't meant for what is shown now.
constexpr uint32_t LongestInputPause = 1000; // milliseconds

constexpr bool isSame(int32_t ours, int32_t sdls) { return ours == sdls; }
static_assert(isSame(KeyUp, SDLK_UP) && isSame(KeyDown, SDLK_DOWN) &&
              isSame(KeyRight, SDLK_RIGHT) && isSame(KeyLeft, SDLK_LEFT) &&
              isSame(KeyEnter, SDLK_KP_ENTER) && isSame(KeyHome, SDLK_HOME) &&
              isSame(KeyEnd, SDLK_END) && isSame(KeyPageUp, SDLK_PAGEUP) &&
              isSame(KeyPageDown, SDLK_PAGEDOWN) && isSame(KeyDelete, SDLK_DELETE) &&
              isSame(KeyBackspace, SDLK_BACKSPACE));

/// The engine's number of an SDL button; -1 for unknown ones. The right button is 2, the middle one
/// 3.
int32_t engineButton(int32_t sdlButton) {
    const int32_t button = sdlButton & 15;
    if (button >= Platform::ButtonCount)
        return -1;
    return button == 2 ? 3 : button == 3 ? 2 : button;
}

bool isAltEnter(const SDL_keysym& pressed) {
    return (pressed.mod & KMOD_ALT) != 0 &&
           (pressed.sym == SDLK_RETURN || pressed.sym == SDLK_KP_ENTER);
}

/// Set by a signal, handled when the event queue is drained next.
volatile std::sig_atomic_t signalCame = 0;

/// A second signal ends the program at once, in case it hangs.
void noteSignal(int number) {
    signalCame = 1;
    std::signal(number, SIG_DFL);
}

} // namespace

Platform& Platform::getInstance() {
    // The log is built first, so that it outlives the platform, which logs as it ends.
    static const bool logIsThere = isConsoleShown();
    static Platform platform;
    static_cast<void>(logIsThere);
    return platform;
}

Platform::Platform() {
    // Without a display SDL would use the terminal.
    if (!system::hasDisplay() && system::environment("SDL_VIDEODRIVER").empty())
        system::setEnvironment("SDL_VIDEODRIVER", "dummy");
    // The first window is centred. Window resets this, so that later ones stay where the player put
    // them.
    if (system::environment("SDL_VIDEO_WINDOW_POS").empty())
        system::setEnvironment("SDL_VIDEO_CENTERED", "1");
    // Without audio or joysticks the program still runs.
    hasVideo = SDL_Init(SDL_INIT_EVERYTHING | SDL_INIT_NOPARACHUTE) == 0 ||
               SDL_Init(SDL_INIT_VIDEO | SDL_INIT_TIMER | SDL_INIT_NOPARACHUTE) == 0;
    if (!hasVideo) {
        console("SDL_Init failed");
        log(String("SDL_Init failed: ") + SDL_GetError(), "Platform", LogError);
        return;
    }
    // Nothing uses SDL's timers, and their thread wakes up 900 times a second. SDL_GetTicks, which
    // paces the repetition of keys, doesn't need them.
    SDL_QuitSubSystem(SDL_INIT_TIMER);
    takeSignals();
    const SDL_VideoInfo* info = SDL_GetVideoInfo();
    if (info != nullptr) {
        desktopWidth = std::max(0, info->current_w);
        desktopHeight = std::max(0, info->current_h);
    }
    SDL_WM_SetCaption(applicationTitle().c_str(), nullptr);
    SDL_EnableUNICODE(1);
    SDL_EnableKeyRepeat(SDL_DEFAULT_REPEAT_DELAY, SDL_DEFAULT_REPEAT_INTERVAL);
}

Platform::~Platform() {
    console("SDL_Quit!");
    SDL_Quit();
}

// SDL makes a signal look like the closing of the window, which the application may refuse. A
// signal that was ignored when the program started stays ignored, and without a window it ends the
// program at once.
void Platform::takeSignals() {
    char driver[16] = "";
    const bool hasWindows = SDL_VideoDriverName(driver, sizeof driver) != nullptr &&
                            std::string_view(driver) != "dummy";
    for (const int number : {SIGINT, SIGTERM})
        if (std::signal(number, hasWindows ? noteSignal : SIG_DFL) == SIG_IGN)
            std::signal(number, SIG_IGN);
}

Platform& Platform::drained() {
    Platform& platform = getInstance();
    platform.handleEvents();
    return platform;
}

void Platform::handleEvents(bool wait) {
    if (!hasVideo)
        return;
    SDL_Event event;
    if (wait && SDL_WaitEvent(&event) == 1)
        handleEvent(event);
    while (SDL_PollEvent(&event) == 1)
        handleEvent(event);
    if (signalCame != 0) {
        signalCame = 0;
        interrupted = true;
        quitEvents = std::max(quitEvents, 1);
    }
    applyWindowChanges();
}

void Platform::handleEvent(const SDL_Event& event) {
    switch (event.type) {
    case SDL_KEYDOWN:
        return keyDownEvent(event);
    case SDL_KEYUP:
        return keyUpEvent(event);
    case SDL_MOUSEMOTION:
        mouseX = event.motion.x;
        mouseY = event.motion.y;
        mouseMoveX += event.motion.xrel;
        mouseMoveY += event.motion.yrel;
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        return buttonEvent(event);
    case SDL_QUIT:
        quitEvents = std::min(quitEvents + 1, MostQuitEvents);
        break;
    case SDL_VIDEORESIZE:
        wantedWidth = event.resize.w;
        wantedHeight = event.resize.h;
        break;
    case SDL_VIDEOEXPOSE:
    case SDL_ACTIVEEVENT:
        if (Window* window = Window::current())
            window->invalidate();
        break;
    default:
        break;
    }
}

KeyPress Platform::makeKey(int32_t symbol, int32_t unicode) {
    KeyPress key;
    key.symbol = symbol;
    key.unicode = unicode;
    key.character = windows1252Of(static_cast<uint32_t>(unicode));
    key.printable = static_cast<uint32_t>(unicode) - 32 < 224;
    return key;
}

void Platform::keyDownEvent(const SDL_Event& event) {
    const SDL_keysym& pressed = event.key.keysym;
    KeyPress key = makeKey(pressed.sym, pressed.unicode);
    key.shift = (pressed.mod & KMOD_SHIFT) != 0;
    if (key.symbol >= 0 && key.symbol < KeyCount) {
        key.repeated = keyDown[key.symbol] != 0;
        keyDown[key.symbol] = 1;
    }
    if (isAltEnter(pressed)) {
        wantsFullscreenToggle = wantsFullscreenToggle || !key.repeated;
        return;
    }
    if (!key.repeated) { // getKey() reports presses only; texts take repeated keys as well
        lastKey = key.symbol;
        lastUnicode = static_cast<int16_t>(key.unicode);
    }
    if (typedKeys.size() == MostTypedKeys)
        typedKeys.erase(typedKeys.begin());
    typedKeys.push_back(key);
}

void Platform::keyUpEvent(const SDL_Event& event) {
    const SDL_keysym& released = event.key.keysym;
    const int32_t symbol = released.sym;
    if (symbol >= 0 && symbol < KeyCount)
        keyDown[symbol] = 0;
    if (symbol == lastKey || static_cast<int16_t>(released.unicode) == lastUnicode) {
        lastKey = 0;
        lastUnicode = 0;
    }
}

void Platform::buttonEvent(const SDL_Event& event) {
    const int32_t button = engineButton(event.button.button);
    if (button < 0)
        return;
    // On Windows SDL reports the motion after a press that came with it.
    mouseX = event.button.x;
    mouseY = event.button.y;
    Press& press = presses[button];
    if (event.type == SDL_MOUSEBUTTONDOWN) {
        buttonDown[button] = 1;
        press = {true, false, false, mouseX, mouseY};
        wheel += button == WheelUp ? 1 : button == WheelDown ? -1 : 0;
        return;
    }
    if (buttonDown[button] != 0)
        buttonHit[button] = 1;
    buttonDown[button] = 0;
    if (press.held && !press.seen)
        pendingTaps.push_back({button, press.x, press.y, mouseX, mouseY});
    press.held = false;
}

// After all events: dragging a window's corner sends dozens of them.
void Platform::applyWindowChanges() {
    Window* window = Window::current();
    const bool toggles = wantsFullscreenToggle;
    const int32_t newWidth = wantedWidth;
    const int32_t newHeight = wantedHeight;
    wantsFullscreenToggle = false;
    wantedWidth = 0;
    wantedHeight = 0;
    if (window == nullptr)
        return;
    if (toggles) {
        window->setFullscreen(!window->isFullscreen());
        Window::notifyFullscreenListener();
    } else if (newWidth > 0 && newHeight > 0) {
        window->resize(newWidth, newHeight);
    }
}

int32_t Platform::appState() const {
    if (fixedAppState >= 0)
        return fixedAppState;
    return hasVideo && Window::current() != nullptr ? SDL_GetAppState() : AllAppStates;
}

void Platform::beginInputFrame() {
    handleEvents();
    const uint32_t now = ticks();
    if (now - lastInputFrame > LongestInputPause) { // drops input from before a long pause
        pendingTaps.clear();
        typedKeys.clear();
    }
    lastInputFrame = now;
    visibleTaps = std::move(pendingTaps);
    pendingTaps.clear();
    for (Press& press : presses)
        press.wasVisible = press.held;
}

void Platform::endInputFrame() {
    visibleTaps.clear();
    for (Press& press : presses) {
        press.seen = press.seen || (press.held && press.wasVisible);
        press.wasVisible = false;
    }
}

void Platform::forgetPresses() {
    visibleTaps.clear();
    pendingTaps.clear();
    typedKeys.clear();
    for (Press& press : presses)
        press.seen = true;
}

void Platform::pumpAndDrop() {
    handleEvents();
    dropInput();
}

void Platform::dropInput() {
    forgetPresses();
    buttonDown.fill(0);
    buttonHit.fill(0);
    lastKey = 0;
    lastUnicode = 0;
    mouseMoveX = mouseMoveY = 0;
    wheel = 0;
}

void Platform::releaseKeys() { keyDown.fill(0); }

void Platform::clearInput() {
    dropInput();
    releaseKeys();
    presses = {};
    mouseX = mouseY = 0;
    quitEvents = 0;
    interrupted = false;
}

} // namespace zel
