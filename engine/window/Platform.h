#pragma once

#include <array>
#include <cstdint>
#include <vector>

union SDL_Event;

namespace zel {

/// A key press. Symbols are SDL's; those without a character are listed below.
struct KeyPress {
    int32_t symbol = 0;     // SDL's; 0 for no key
    char character = 0;     // in Windows-1252; 0 without one
    int32_t unicode = 0;    // 0 without a character
    bool printable = false; // the Unicode value is of Latin-1 and not below 32
    bool shift = false;     // pressed with it
    bool repeated = false;  // repeated by the system while held
};

/// SDL's symbols of the keys that menus and text inputs handle.
enum KeySymbol : int32_t {
    KeyBackspace = 8,
    KeyTab = 9,
    KeyReturn = 13,
    KeyEscape = 27,
    KeySpace = 32,
    KeyDelete = 127,
    KeyEnter = 271, // on the number pad
    KeyUp = 273,
    KeyDown = 274,
    KeyRight = 275,
    KeyLeft = 276,
    KeyHome = 278,
    KeyEnd = 279,
    KeyPageUp = 280,
    KeyPageDown = 281,
};

/// A press and release of a mouse button between two frames, so that no frame saw the button down:
/// touchpads and slow frames cause them. Window pixels.
struct Tap {
    int32_t button; // numbered as in Mouse
    int32_t pressX, pressY;
    int32_t releaseX, releaseY;
};

/// Owns SDL and the event queue, and keeps the state of the input. Built at first use, which must
/// be the first thing that a program does with the engine; it ends with the process, so that
/// rebuilding the loop doesn't affect the window.
///
/// Screens use zel::Mouse and zel::Keyboard.
class Platform {
public:
    static constexpr int32_t KeyCount = 323;
    static constexpr int32_t ButtonCount = 8;

    static Platform& getInstance();

    /// Drains the event queue; with `wait` it first waits for an event.
    void handleEvents(bool wait = false);
    /// Handles one event. Tests call it in place of the queue.
    void handleEvent(const SDL_Event& event);
    int32_t getQuitEvents() const { return quitEvents; } // at most 127
    /// Whether a signal asks the program to end. It counts as a quit event, and can't be refused.
    bool isInterrupted() const { return interrupted; }
    /// Withdraws all quit events except a signal's.
    void forgetQuit() { quitEvents = interrupted ? 1 : 0; }

    /// The bits of SDL_GetAppState: 1 pointer in the window, 2 keyboard focus, 4 not minimised. All
    /// three without a window system.
    int32_t appState() const;
    /// Replaces appState()'s result, for tests; a negative value restores the system's.
    void setAppState(int32_t bits) { fixedAppState = bits; }
    /// Size of the desktop in pixels when the program started; 0 if unknown.
    int32_t getDesktopWidth() const { return desktopWidth; }
    int32_t getDesktopHeight() const { return desktopHeight; }

    /// Begins a frame's input: drains the queue, and taps since the last frame become visible.
    void beginInputFrame();
    /// Ends it: the frame's taps have been handled.
    void endInputFrame();
    /// Forgets taps and typed keys that were not meant for the current screen, as after a fade.
    void forgetPresses();

    /// Drains the event queue and drops presses, wheel steps and typed keys. Quit events, the
    /// pointer's position, changes of the window and held keys are kept. A press that it drops
    /// gives no hit later.
    void pumpAndDrop();
    /// Marks all keys as released: changes of the window may swallow their releases.
    void releaseKeys();

    /// Back to the initial state: nothing held, hit or typed.
    void clearInput();

private:
    friend class Mouse;
    friend class Keyboard;

    struct Press {
        bool held = false;
        bool seen = false;       // a whole frame has passed with the button down
        bool wasVisible = false; // the current frame began with the button down
        int32_t x = 0;
        int32_t y = 0;
    };

    Platform();
    ~Platform();

    /// The platform after draining the event queue: every query starts with it.
    static Platform& drained();
    static KeyPress makeKey(int32_t symbol, int32_t unicode);
    void keyDownEvent(const SDL_Event& event);
    void keyUpEvent(const SDL_Event& event);
    void buttonEvent(const SDL_Event& event);
    void applyWindowChanges();
    void dropInput();
    static void takeSignals();

    int32_t quitEvents = 0;
    bool interrupted = false;
    std::array<int32_t, ButtonCount> buttonDown{};
    std::array<int32_t, ButtonCount> buttonHit{};
    int32_t mouseX = 0; // window pixels
    int32_t mouseY = 0;
    int32_t mouseMoveX = 0;
    int32_t mouseMoveY = 0;
    std::array<uint8_t, KeyCount> keyDown{};
    int32_t lastKey = 0;
    int16_t lastUnicode = 0;

    std::array<Press, ButtonCount> presses{};
    std::vector<Tap> pendingTaps;
    std::vector<Tap> visibleTaps;
    std::vector<KeyPress> typedKeys;
    uint32_t lastInputFrame = 0; // ticks
    int32_t wheel = 0;           // steps, above 0 for up

    int32_t wantedWidth = 0; // of a pending resize; 0 for none
    int32_t wantedHeight = 0;
    bool wantsFullscreenToggle = false;

    int32_t fixedAppState = -1;
    int32_t desktopWidth = 0;
    int32_t desktopHeight = 0;
    bool hasVideo = false;
};

} // namespace zel
