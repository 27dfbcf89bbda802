#pragma once

#include <array>
#include <cstdint>
#include <vector>

union SDL_Event;

namespace zel {

/// A key as it was pressed. Symbols are SDL's; those that have no character of their own stand
/// below.
struct Key {
    int32_t symbol = 0;     // 0 for no key
    char character = 0;     // in Windows-1252; 0 if it has none
    int32_t unicode = 0;    // 0 if it has none
    bool printable = false; // the Unicode value is of Latin-1 and not below 32
    bool shift = false;     // held with it
    bool repeated = false;  // held down, and reported again
};

enum KeySymbol : int32_t {
    KeyBackspace = 8,
    KeyTab = 9,
    KeyReturn = 13,
    KeyEscape = 27,
    KeySpace = 32,
    KeyDelete = 127,
    KeyEnter = 271, // of the number block
    KeyUp = 273,
    KeyDown = 274,
    KeyRight = 275,
    KeyLeft = 276,
    KeyHome = 278,
    KeyEnd = 279,
    KeyPageUp = 280,
    KeyPageDown = 281,
};

/// A press and release of a mouse button that fell between two frames, so that nobody saw the
/// button down: touchpads and slow frames make them. Window pixels.
struct Tap {
    int32_t button;
    int32_t pressX, pressY;
    int32_t releaseX, releaseY;
};

/// Owns SDL and the event queue, and keeps what the events told. Built at the first use, which must
/// be the first thing that a program does with the engine; it ends with the process, so that the
/// loop can be built again without the window system noticing.
///
/// Screens ask zel::Mouse and zel::Keyboard.
class Platform {
public:
    static constexpr int32_t KeyCount = 323;
    static constexpr int32_t ButtonCount = 8;

    static Platform& getInstance();

    /// Takes all events that wait; with `wait` it first waits for one.
    void handleEvents(bool wait = false);
    /// What one event does. Tests call it in the place of the queue.
    void handleEvent(const SDL_Event& event);
    int32_t getQuitEvents() const { return quitEvents; } // at most 127
    /// Whether a signal asks the program to end. It counts as a quit event, and nobody may refuse
    /// it.
    bool isInterrupted() const { return interrupted; }
    /// The player stays after all: takes back all quit events but a signal's.
    void forgetQuit() { quitEvents = interrupted ? 1 : 0; }

    /// The bits of SDL_GetAppState: 1 the pointer is in the window, 2 it has the keyboard, 4 it is
    /// not minimised. All three where there is no window system.
    int32_t appState() const;
    /// Replaces the answer, for tests; a negative value takes the system's again.
    void setAppState(int32_t bits) { fixedAppState = bits; }
    /// Size of the desktop in pixels when the program started; 0 if unknown.
    int32_t getDesktopWidth() const { return desktopWidth; }
    int32_t getDesktopHeight() const { return desktopHeight; }

    /// Begins a frame's look at the input: the taps since the last look become visible.
    void beginLook();
    /// Ends it: whoever wanted them has seen them.
    void endLook();
    /// Forgets taps and typed keys that nobody may answer any more, as after a fade.
    void forgetPresses();

    /// Takes all events that wait and drops what the player pressed, turned and typed: nobody looks
    /// for it. Kept are the wish to quit, the pointer's place, what became of the window, and which
    /// keys are held. A press that it sees gives no hit later.
    void pumpAndDrop();
    /// Takes all keys for released: what happens to the window may swallow their releases.
    void releaseKeys();

    /// As at the start: nothing held, nothing hit, nothing typed.
    void clearInput();

private:
    friend class Mouse;
    friend class Keyboard;

    struct Press {
        bool held = false;
        bool seen = false;       // a whole look has passed with the button down
        bool wasVisible = false; // the present look began with the button down
        int32_t x = 0;
        int32_t y = 0;
    };

    Platform();
    ~Platform();

    /// The platform when it has taken the events that wait: every query begins so.
    static Platform& drained();
    static Key makeKey(int32_t symbol, int32_t unicode);
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
    std::vector<Key> typedKeys;
    uint32_t lastLook = 0; // ticks
    int32_t wheel = 0;     // steps turned, up above 0

    int32_t wantedWidth = 0; // of a resize that the drain has seen; 0 for none
    int32_t wantedHeight = 0;
    bool wantsFullscreenToggle = false;

    int32_t fixedAppState = -1;
    int32_t desktopWidth = 0;
    int32_t desktopHeight = 0;
    bool hasVideo = false;
};

} // namespace zel
