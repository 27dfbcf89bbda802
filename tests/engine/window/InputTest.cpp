#include <SDL.h>
#include <gtest/gtest.h>

#include "engine/core/Keyboard.h"
#include "engine/core/Mouse.h"
#include "engine/core/Platform.h"
#include "engine/core/Window.h"
#include "tests/engine/window/ManualClock.h"

namespace zel {

namespace {

class InputTest : public testing::Test {
protected:
    InputTest() { platform.clearInput(); }
    ~InputTest() override {
        platform.clearInput();
        platform.setAppState(-1);
    }

    void motion(uint16_t x, uint16_t y) {
        SDL_Event event{};
        event.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        event.motion.xrel = 3;
        event.motion.yrel = -2;
        platform.handleEvent(event);
    }
    void button(uint8_t number, bool down) {
        SDL_Event event{};
        event.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        event.button.button = number;
        platform.handleEvent(event);
    }
    void key(SDLKey symbol, uint16_t unicode, bool down, int32_t modifiers = KMOD_NONE) {
        SDL_Event event{};
        event.type = down ? SDL_KEYDOWN : SDL_KEYUP;
        event.key.keysym.sym = symbol;
        event.key.keysym.unicode = unicode;
        event.key.keysym.mod = static_cast<SDLMod>(modifiers);
        platform.handleEvent(event);
    }
    /// A frame's look at the input, as the state machine takes it.
    void look() {
        platform.beginLook();
        platform.endLook();
    }
    static bool tapped() { return Mouse::wasTapped(1, 90, 90, 20, 20); }

    ManualClock clock;
    Platform& platform = Platform::getInstance();
};

TEST_F(InputTest, NumbersTheButtons) {
    button(SDL_BUTTON_LEFT, true);
    EXPECT_TRUE(Mouse::isButtonDown(1));
    button(2, true);
    EXPECT_TRUE(Mouse::isButtonDown(3)) << "SDL's middle button";
    EXPECT_FALSE(Mouse::isButtonDown(2));
    button(3, true);
    EXPECT_TRUE(Mouse::isButtonDown(2));
    for (uint8_t number = 8; number < 16; ++number)
        button(number, true); // side buttons and tilting wheels, of which there is no room
    button(17, false);        // the number counts modulo 16
    EXPECT_FALSE(Mouse::isButtonDown(1));
    EXPECT_FALSE(Mouse::isButtonDown(-1));
    EXPECT_FALSE(Mouse::isButtonDown(8));
    EXPECT_FALSE(Mouse::isButtonHit(8));
}

TEST_F(InputTest, AHitIsAPressAndARelease) {
    button(1, false);
    EXPECT_FALSE(Mouse::isButtonHit(1)) << "a release without its press";
    button(1, true);
    EXPECT_FALSE(Mouse::isButtonHit(1));
    button(1, false);
    EXPECT_FALSE(Mouse::isButtonDown(1));
    EXPECT_TRUE(Mouse::isButtonHit(1));
    EXPECT_FALSE(Mouse::isButtonHit(1)) << "it is told once";
    button(1, true);
    Mouse::consumeHits();
    button(1, false);
    EXPECT_FALSE(Mouse::isButtonHit(1)) << "the press was consumed";
}

TEST_F(InputTest, FollowsTheMouse) {
    motion(10, 20);
    motion(30, 40);
    EXPECT_EQ(Mouse::getX(), 30);
    EXPECT_EQ(Mouse::getY(), 40);
    EXPECT_EQ(Mouse::getMoveX(), 6);
    EXPECT_EQ(Mouse::getMoveX(), 0);
    EXPECT_EQ(Mouse::getMoveY(), -4);
    for (const uint8_t wheel : {4, 4, 5, 4}) {
        button(wheel, true);
        button(wheel, false);
    }
    EXPECT_EQ(Mouse::takeWheel(), 2);
    EXPECT_EQ(Mouse::takeWheel(), 0);
}

TEST_F(InputTest, AClickThatNoFrameSawIsATap) {
    motion(100, 100);
    button(1, true);
    button(1, false);
    EXPECT_FALSE(tapped()) << "not before the next look";
    platform.beginLook();
    EXPECT_TRUE(tapped());
    EXPECT_TRUE(tapped()) << "for everybody who looks";
    EXPECT_FALSE(Mouse::wasTapped(2, 90, 90, 20, 20));
    EXPECT_FALSE(Mouse::wasTapped(1, 101, 90, 20, 20));
    Mouse::consumeHits();
    EXPECT_FALSE(tapped()) << "until somebody takes it";
    platform.endLook();
    platform.beginLook();
    EXPECT_FALSE(tapped());
    platform.endLook();
}

TEST_F(InputTest, ATapMustBeginAndEndInTheSamePlace) {
    motion(100, 100);
    button(1, true);
    motion(120, 100);
    button(1, false);
    platform.beginLook();
    EXPECT_FALSE(tapped());
    EXPECT_TRUE(Mouse::wasTapped(1, 90, 90, 40, 40));
    platform.endLook();
}

TEST_F(InputTest, AClickThatAFrameSawIsNoTap) {
    motion(100, 100);
    button(1, true);
    look();
    button(1, false);
    platform.beginLook();
    EXPECT_FALSE(tapped());
    platform.endLook();
}

TEST_F(InputTest, AClickThatEndsAmidTheLookIsNotLost) {
    motion(100, 100);
    button(1, true);
    platform.beginLook();
    button(1, false); // while half of the widgets had their turn
    platform.endLook();
    platform.beginLook();
    EXPECT_TRUE(tapped());
    platform.endLook();
}

TEST_F(InputTest, WhatWasPressedInAFadeIsForgotten) {
    motion(100, 100);
    button(1, true);
    button(1, false);
    key(SDLK_ESCAPE, 27, true);
    platform.forgetPresses();
    platform.beginLook();
    EXPECT_FALSE(tapped());
    platform.endLook();
    EXPECT_TRUE(Keyboard::takeKeys().empty());
    button(1, true);
    platform.forgetPresses();
    button(1, false); // begun in the fade, ended after it
    platform.beginLook();
    EXPECT_FALSE(tapped());
    platform.endLook();
}

TEST_F(InputTest, WhatWasTappedWhileTheProgramWasBusyIsForgotten) {
    look();
    motion(100, 100);
    button(1, true);
    button(1, false);
    clock.advance(1500);
    platform.beginLook();
    EXPECT_FALSE(tapped());
    platform.endLook();
}

TEST_F(InputTest, GivesTheLastKeyOnce) {
    key(SDLK_a, 'a', true);
    key(SDLK_b, 'B', true, KMOD_LSHIFT);
    EXPECT_TRUE(Keyboard::isKeyDown(SDLK_a));
    const Key last = Keyboard::getKey();
    EXPECT_EQ(last.symbol, SDLK_b);
    EXPECT_EQ(last.character, 'B');
    EXPECT_TRUE(last.printable);
    EXPECT_EQ(Keyboard::getKey().symbol, 0);
    EXPECT_FALSE(Keyboard::getKey().printable);
    key(SDLK_a, 0, false);
    EXPECT_FALSE(Keyboard::isKeyDown(SDLK_a));
    EXPECT_FALSE(Keyboard::isKeyDown(5000));
}

TEST_F(InputTest, AKeyThatIsLetGoIsNoLongerTheLast) {
    key(SDLK_x, 'x', true);
    key(SDLK_x, 0, false);
    EXPECT_EQ(Keyboard::getKey().symbol, 0) << "its symbol";
    key(SDLK_x, 'x', true);
    key(SDLK_y, 'x', false);
    EXPECT_EQ(Keyboard::getKey().symbol, 0) << "its character";
    key(SDLK_x, 0, false);
    key(SDLK_x, 'x', true);
    key(SDLK_y, 0, false);
    EXPECT_EQ(Keyboard::getKey().symbol, SDLK_x) << "another key";
    key(SDLK_LEFT, 0, true);
    key(SDLK_y, 0, false);
    EXPECT_EQ(Keyboard::getKey().symbol, 0) << "no character is the same as no character";
}

TEST_F(InputTest, AKeyThatIsHeldIsPressedOnce) {
    key(SDLK_x, 'x', true);
    EXPECT_EQ(Keyboard::getKey().symbol, SDLK_x);
    key(SDLK_x, 'x', true); // as the system repeats it
    EXPECT_EQ(Keyboard::getKey().symbol, 0);
    EXPECT_EQ(Keyboard::getKey().unicode, 0);
    EXPECT_EQ(Keyboard::takeKeys().size(), 2U) << "texts take both";
    key(SDLK_x, 0, false);
    key(SDLK_x, 'x', true);
    EXPECT_EQ(Keyboard::getKey().symbol, SDLK_x);
}

TEST_F(InputTest, KnowsWhatIsPrintable) {
    const auto isPrintable = [this](uint16_t unicode) {
        key(SDLK_UNKNOWN, unicode, true);
        const bool printable = Keyboard::getKey().printable;
        key(SDLK_UNKNOWN, 0, false);
        return printable;
    };
    EXPECT_FALSE(isPrintable(31));
    EXPECT_TRUE(isPrintable(32));
    EXPECT_TRUE(isPrintable(255));
    EXPECT_FALSE(isPrintable(256));
    EXPECT_FALSE(isPrintable(0));
}

TEST_F(InputTest, QueuesWhatIsTyped) {
    key(SDLK_h, 'h', true);
    key(SDLK_h, 'h', true);
    key(SDLK_TAB, '\t', true, KMOD_RSHIFT);
    const std::vector<Key> keys = Keyboard::takeKeys();
    ASSERT_EQ(keys.size(), 3U);
    EXPECT_FALSE(keys[0].repeated);
    EXPECT_TRUE(keys[1].repeated);
    EXPECT_EQ(keys[2].symbol, KeyTab);
    EXPECT_TRUE(keys[2].shift);
    EXPECT_TRUE(Keyboard::takeKeys().empty());
    for (int32_t count = 0; count < 100; ++count)
        key(SDLK_a, 'a', true);
    EXPECT_EQ(Keyboard::takeKeys().size(), 64U) << "nobody took them";
}

TEST_F(InputTest, AltEnterIsNotAKeyOfTheScreens) {
    key(SDLK_RETURN, 13, true, KMOD_LALT);
    EXPECT_TRUE(Keyboard::takeKeys().empty());
    EXPECT_EQ(Keyboard::getKey().symbol, 0);
}

TEST_F(InputTest, CountsQuitEvents) {
    SDL_Event event{};
    event.type = SDL_QUIT;
    EXPECT_FALSE(Window::pollQuit());
    for (int32_t count = 0; count < 200; ++count)
        platform.handleEvent(event);
    EXPECT_EQ(platform.getQuitEvents(), 127);
    EXPECT_TRUE(Window::pollQuit());
}

TEST_F(InputTest, TellsWhereTheAttentionIs) {
    EXPECT_TRUE(Window::hasMouseFocus() && Window::hasInputFocus() && Window::isActive())
        << "without a window";
    platform.setAppState(5);
    EXPECT_TRUE(Window::hasMouseFocus());
    EXPECT_FALSE(Window::hasInputFocus());
    EXPECT_TRUE(Window::isActive());
}

TEST_F(InputTest, TakesEventsFromTheQueue) {
    SDL_Event event{};
    event.type = SDL_MOUSEMOTION;
    event.motion.x = 77;
    ASSERT_EQ(SDL_PushEvent(&event), 0);
    EXPECT_EQ(Mouse::getX(), 77);
}

} // namespace

} // namespace zel
