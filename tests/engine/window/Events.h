#pragma once

#include <SDL.h>

// What the system reports, as SDL gives it.

/// Where the last motion event leaves the pointer.
inline SDL_MouseMotionEvent& lastMotion() {
    static SDL_MouseMotionEvent motion{};
    return motion;
}

inline SDL_Event motionEvent(int32_t x, int32_t y, int32_t moveX = 0, int32_t moveY = 0) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = static_cast<Uint16>(x);
    event.motion.y = static_cast<Uint16>(y);
    event.motion.xrel = static_cast<Sint16>(moveX);
    event.motion.yrel = static_cast<Sint16>(moveY);
    lastMotion() = event.motion;
    return event;
}

inline SDL_Event buttonEvent(int32_t number, bool down) {
    SDL_Event event{};
    event.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
    event.button.button = static_cast<Uint8>(number);
    event.button.x = lastMotion().x;
    event.button.y = lastMotion().y;
    return event;
}

inline SDL_Event keyEvent(int32_t symbol, uint16_t unicode, bool down,
                          int32_t modifiers = KMOD_NONE) {
    SDL_Event event{};
    event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
    event.key.keysym.sym = static_cast<SDLKey>(symbol);
    event.key.keysym.unicode = unicode;
    event.key.keysym.mod = static_cast<SDLMod>(modifiers);
    return event;
}

inline SDL_Event quitEvent() {
    SDL_Event event{};
    event.type = SDL_QUIT;
    return event;
}
